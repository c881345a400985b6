#pragma once

#include <algorithm>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

/// Growable array with integer positions, a thin face over std::vector.
/// Positions run from 0 to size() - 1; element access does not check them. Not found is -1.
template <typename T>
class McDArray
{
public:
    using value_type = T;
    using iterator = typename std::vector<T>::iterator;
    using const_iterator = typename std::vector<T>::const_iterator;

    McDArray() = default;
    McDArray(std::initializer_list<T> values)
        : m_values(values)
    { }
    explicit McDArray(int size)
        : m_values(static_cast<std::size_t>(size))
    { }

    [[nodiscard]] int size() const { return static_cast<int>(m_values.size()); }
    [[nodiscard]] int capacity() const { return static_cast<int>(m_values.capacity()); }
    [[nodiscard]] bool isEmpty() const { return m_values.empty(); }

    void reserve(int capacity) { m_values.reserve(static_cast<std::size_t>(capacity)); }
    void resize(int size) { m_values.resize(static_cast<std::size_t>(size)); }
    void clear() { m_values.clear(); }
    void swap(McDArray &other) noexcept { m_values.swap(other.m_values); }

    T &operator[](int position) { return m_values[static_cast<std::size_t>(position)]; }
    const T &operator[](int position) const { return m_values[static_cast<std::size_t>(position)]; }
    T &first() { return m_values.front(); }
    const T &first() const { return m_values.front(); }
    T &last() { return m_values.back(); }
    const T &last() const { return m_values.back(); }
    T *data() { return m_values.data(); }
    const T *data() const { return m_values.data(); }

    /// Appends a value and returns its position.
    int append(T value)
    {
        m_values.push_back(std::move(value));
        return size() - 1;
    }
    /// Appends all values of @p other, which may be this array.
    void append(const McDArray &other)
    {
        const int count = other.size();
        reserve(size() + count);
        for (int i = 0; i < count; ++i) {
            m_values.push_back(other[i]);
        }
    }
    /// Inserts a value before @p position; a position at or past the end appends.
    void insert(int position, T value)
    {
        m_values.insert(m_values.begin() + std::clamp(position, 0, size()), std::move(value));
    }
    /// Removes @p count values from @p position on; the order of the rest is kept.
    void remove(int position, int count = 1)
    {
        const auto from = m_values.begin() + position;
        m_values.erase(from, from + count);
    }
    void removeLast() { m_values.pop_back(); }

    /// Position of the first value equal to @p value at or after @p start, or -1.
    [[nodiscard]] int indexOf(const T &value, int start = 0) const
    {
        const auto from = m_values.begin() + std::clamp(start, 0, size());
        const auto found = std::find(from, m_values.end(), value);
        return found == m_values.end() ? -1 : static_cast<int>(found - m_values.begin());
    }
    /// Position of the last value equal to @p value, or -1.
    [[nodiscard]] int lastIndexOf(const T &value) const
    {
        const auto found = std::find(m_values.rbegin(), m_values.rend(), value);
        return static_cast<int>(m_values.rend() - found) - 1;
    }
    [[nodiscard]] bool contains(const T &value) const { return indexOf(value) >= 0; }

    /// Sorts in ascending order; not stable. @p compare says for two values whether the first comes
    /// first (bool), or how they compare (an int below, at or above 0).
    template <typename Compare>
    void sort(Compare compare)
    {
        using Result = std::invoke_result_t<Compare &, const T &, const T &>;
        if constexpr (std::is_same_v<Result, bool>) {
            std::sort(m_values.begin(), m_values.end(), compare);
        } else {
            std::sort(m_values.begin(), m_values.end(),
                [&compare](const T &a, const T &b) { return compare(a, b) < 0; });
        }
    }

    iterator begin() { return m_values.begin(); }
    iterator end() { return m_values.end(); }
    const_iterator begin() const { return m_values.begin(); }
    const_iterator end() const { return m_values.end(); }

    friend bool operator==(const McDArray &a, const McDArray &b)
    {
        return a.m_values == b.m_values;
    }

private:
    std::vector<T> m_values;
};
