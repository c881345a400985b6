#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

/// Intrusive owning pointer to an object that derives from McHandable or McHandableThreaded.
/// Converts from and to plain pointers, so that interfaces which only look at an object can take a
/// plain pointer.
template <typename T>
class McHandle
{
public:
    McHandle() = default;
    McHandle(std::nullptr_t) { }
    /// Takes a reference to @p object, which may be null.
    McHandle(T *object)
        : m_object(object)
    {
        if (m_object) {
            m_object->ref();
        }
    }
    McHandle(const McHandle &other)
        : McHandle(other.m_object)
    { }
    McHandle(McHandle &&other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    { }
    template <typename U>
    requires std::is_convertible_v<U *, T *> McHandle(const McHandle<U> &other)
        : McHandle(static_cast<T *>(other.get()))
    { }
    ~McHandle() { release(); }

    /// The previous object is let go only after the handle holds the new one, so that its
    /// destructor may look at the handle.
    McHandle &operator=(McHandle other) noexcept
    {
        swap(other);
        return *this;
    }

    void swap(McHandle &other) noexcept { std::swap(m_object, other.m_object); }
    /// Lets the object go; the handle is empty afterwards.
    void reset() { McHandle().swap(*this); }

    /// The object, or null.
    [[nodiscard]] T *get() const { return m_object; }
    /// The object, or null.
    [[nodiscard]] T *ptr() const { return m_object; }
    T *operator->() const { return m_object; }
    T &operator*() const { return *m_object; }
    operator T *() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

private:
    void release()
    {
        if (m_object) {
            std::exchange(m_object, nullptr)->unref();
        }
    }

    T *m_object = nullptr;
};
