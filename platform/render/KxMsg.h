#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QByteArray>

#include <cstdint>
#include <string>

/// Byte stream of a message: values are appended at the end and read from the front, in the same
/// order. Integers are 32 bits, signed, little-endian, whatever the machine. Reading past the end
/// or a broken text gives 0 or empty, reads nothing beyond the buffer and puts the stream in an
/// error state, which stays. Not for sharing between threads.
class MOVARA_PLATFORM_EXPORT KxMsg
{
public:
    /// An empty message to write to.
    KxMsg() = default;
    /// A message to read, e.g. one received.
    explicit KxMsg(const QByteArray &bytes);

    KxMsg &operator<<(std::int32_t value);
    KxMsg &operator<<(bool value);
    /// Bit pattern of a 32-bit IEEE number.
    KxMsg &operator<<(float value);
    /// Length in bytes, then the bytes.
    KxMsg &operator<<(const std::string &value);
    /// A pointer, e.g. a text literal, would be written as a bool.
    KxMsg &operator<<(const void *) = delete;

    KxMsg &operator>>(std::int32_t &value);
    KxMsg &operator>>(bool &value);
    KxMsg &operator>>(float &value);
    KxMsg &operator>>(std::string &value);

    /// False after a read has failed.
    [[nodiscard]] bool isGood() const { return m_good; }
    /// Whether everything has been read.
    [[nodiscard]] bool atEnd() const { return m_position >= m_bytes.size(); }
    /// All bytes, read or not.
    [[nodiscard]] const QByteArray &bytes() const { return m_bytes; }

private:
    bool take(void *target, qsizetype count);

    QByteArray m_bytes;
    qsizetype m_position = 0;
    bool m_good = true;
};
