#pragma once

/// Axis-aligned box of four floats. Empty when a minimum exceeds its maximum; the default box (1,
/// 1, 0, 0) is empty.
class McBox2f
{
public:
    constexpr McBox2f() = default;
    constexpr McBox2f(float xMin, float yMin, float xMax, float yMax)
        : m_xMin(xMin)
        , m_yMin(yMin)
        , m_xMax(xMax)
        , m_yMax(yMax)
    { }

    [[nodiscard]] constexpr float xMin() const { return m_xMin; }
    [[nodiscard]] constexpr float yMin() const { return m_yMin; }
    [[nodiscard]] constexpr float xMax() const { return m_xMax; }
    [[nodiscard]] constexpr float yMax() const { return m_yMax; }
    [[nodiscard]] constexpr float width() const { return m_xMax - m_xMin; }
    [[nodiscard]] constexpr float height() const { return m_yMax - m_yMin; }
    [[nodiscard]] constexpr bool isEmpty() const { return m_xMin > m_xMax || m_yMin > m_yMax; }

    /// The smallest box around both; an empty box adds nothing.
    [[nodiscard]] constexpr McBox2f united(const McBox2f &other) const
    {
        if (isEmpty()) {
            return other;
        }
        if (other.isEmpty()) {
            return *this;
        }
        return {m_xMin < other.m_xMin ? m_xMin : other.m_xMin,
            m_yMin < other.m_yMin ? m_yMin : other.m_yMin,
            m_xMax > other.m_xMax ? m_xMax : other.m_xMax,
            m_yMax > other.m_yMax ? m_yMax : other.m_yMax};
    }

    friend constexpr bool operator==(const McBox2f &, const McBox2f &) = default;

private:
    float m_xMin = 1;
    float m_yMin = 1;
    float m_xMax = 0;
    float m_yMax = 0;
};
