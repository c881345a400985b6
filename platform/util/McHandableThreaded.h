#pragma once

#include "platform/MovaraPlatformExport.h"

#include <atomic>

/// Like McHandable, with an atomic count: handles of one object may be copied and released in any
/// thread. The object is deleted in the thread that releases the last handle.
class MOVARA_PLATFORM_EXPORT McHandableThreaded
{
public:
    McHandableThreaded() = default;
    /// A copy is a new object: it starts without references.
    McHandableThreaded(const McHandableThreaded &) { }
    McHandableThreaded &operator=(const McHandableThreaded &) { return *this; }

    /// Takes a reference.
    void ref() const { m_references.fetch_add(1, std::memory_order_relaxed); }
    /// Gives a reference back; deletes the object when it was the last one.
    void unref() const;
    /// Number of references held now; a snapshot when other threads hold handles.
    [[nodiscard]] int references() const { return m_references.load(std::memory_order_relaxed); }

protected:
    virtual ~McHandableThreaded();

private:
    mutable std::atomic<int> m_references{0};
};
