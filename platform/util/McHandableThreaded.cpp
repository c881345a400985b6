#include "platform/util/McHandableThreaded.h"

McHandableThreaded::~McHandableThreaded() = default;

void McHandableThreaded::unref() const
{
    // Release so that this thread's writes are seen by the one that deletes, acquire so that the
    // deleter sees them all.
    if (m_references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}
