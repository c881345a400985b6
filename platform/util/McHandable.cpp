#include "platform/util/McHandable.h"

McHandable::~McHandable() = default;

void McHandable::unref() const
{
    if (--m_references == 0) {
        delete this;
    }
}
