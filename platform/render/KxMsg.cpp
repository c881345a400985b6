#include "platform/render/KxMsg.h"

#include <QtEndian>

#include <bit>
#include <cstring>

KxMsg::KxMsg(const QByteArray &bytes)
    : m_bytes(bytes)
{ }

KxMsg &KxMsg::operator<<(std::int32_t value)
{
    const std::int32_t littleEndian = qToLittleEndian(value);
    m_bytes.append(reinterpret_cast<const char *>(&littleEndian), sizeof littleEndian);
    return *this;
}

KxMsg &KxMsg::operator<<(bool value)
{
    return *this << std::int32_t{value};
}

KxMsg &KxMsg::operator<<(float value)
{
    return *this << std::bit_cast<std::int32_t>(value);
}

KxMsg &KxMsg::operator<<(const std::string &value)
{
    *this << static_cast<std::int32_t>(value.size());
    m_bytes.append(value.data(), static_cast<qsizetype>(value.size()));
    return *this;
}

KxMsg &KxMsg::operator>>(std::int32_t &value)
{
    std::int32_t littleEndian = 0;
    value = take(&littleEndian, sizeof littleEndian) ? qFromLittleEndian(littleEndian) : 0;
    return *this;
}

KxMsg &KxMsg::operator>>(bool &value)
{
    std::int32_t number = 0;
    *this >> number;
    value = number != 0;
    return *this;
}

KxMsg &KxMsg::operator>>(float &value)
{
    std::int32_t bits = 0;
    *this >> bits;
    value = std::bit_cast<float>(bits);
    return *this;
}

KxMsg &KxMsg::operator>>(std::string &value)
{
    value.clear();
    std::int32_t length = 0;
    *this >> length;
    // The length comes from outside: it is checked before anything is allocated.
    if (length < 0 || length > m_bytes.size() - m_position) {
        m_good = false;
    }
    if (m_good && length > 0) {
        value.resize(static_cast<std::size_t>(length));
        take(value.data(), length);
    }
    return *this;
}

bool KxMsg::take(void *target, qsizetype count)
{
    if (!m_good || count > m_bytes.size() - m_position) {
        m_good = false;
        return false;
    }
    std::memcpy(target, m_bytes.constData() + m_position, static_cast<std::size_t>(count));
    m_position += count;
    return true;
}
