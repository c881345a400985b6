#pragma once

#include "platform/MovaraPlatformExport.h"

/// Base of objects that are kept alive by McHandle. Counts plainly: all handles of one object
/// belong to one thread. The count starts at 0; the object is deleted when the last handle goes,
/// and never if none was ever made. Meant as a virtual base, so that an object reached through
/// several bases still has one count.
class MOVARA_PLATFORM_EXPORT McHandable
{
public:
    McHandable() = default;
    /// A copy is a new object: it starts without references.
    McHandable(const McHandable &) { }
    McHandable &operator=(const McHandable &) { return *this; }

    /// Takes a reference.
    void ref() const { ++m_references; }
    /// Gives a reference back; deletes the object when it was the last one.
    void unref() const;
    /// Number of references held now.
    [[nodiscard]] int references() const { return m_references; }

protected:
    virtual ~McHandable();

private:
    mutable int m_references = 0;
};
