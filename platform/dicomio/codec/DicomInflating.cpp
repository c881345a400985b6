#include "platform/dicomio/codec/DicomInflating.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryFile>

#include <zlib.h>

#include <array>
#include <cstring>

namespace {

constexpr const char *plainSyntax = "1.2.840.10008.1.2.1";
constexpr qsizetype preambleSize = 132;
/// More than any sensible file; a damaged or malicious one may blow up to anything.
constexpr qsizetype largestDataSet = qsizetype(1) << 30;

qsizetype littleEndian(const QByteArray &bytes, qsizetype position, int size)
{
    qsizetype value = 0;
    for (int i = size - 1; i >= 0; --i) {
        value = value << 8 | static_cast<unsigned char>(bytes[position + i]);
    }
    return value;
}

/// Size of preamble and meta header: elements of group 2, in explicit VR; -1 when damaged.
qsizetype metaHeaderSize(const QByteArray &bytes)
{
    qsizetype position = preambleSize;
    while (position + 12 <= bytes.size() && littleEndian(bytes, position, 2) == 2) {
        const QByteArray type = bytes.mid(position + 4, 2);
        const bool isLong = type == "OB" || type == "UN";
        const qsizetype length
            = isLong ? littleEndian(bytes, position + 8, 4) : littleEndian(bytes, position + 6, 2);
        position += (isLong ? 12 : 8) + length;
    }
    return position < bytes.size() ? position : -1;
}

class Inflater
{
public:
    Inflater() { m_isReady = inflateInit2(&m_stream, -MAX_WBITS) == Z_OK; }
    ~Inflater() { inflateEnd(&m_stream); }
    Inflater(const Inflater &) = delete;
    Inflater &operator=(const Inflater &) = delete;

    /// The content of @p deflated; what came before the damage when that is damaged.
    QByteArray inflate(QByteArray deflated)
    {
        m_stream.next_in = reinterpret_cast<Bytef *>(deflated.data());
        m_stream.avail_in = static_cast<uInt>(deflated.size());
        QByteArray result;
        std::array<char, 65536> buffer{};
        int state = m_isReady ? Z_OK : Z_STREAM_ERROR;
        while (state == Z_OK && result.size() < largestDataSet) {
            m_stream.next_out = reinterpret_cast<Bytef *>(buffer.data());
            m_stream.avail_out = static_cast<uInt>(buffer.size());
            state = ::inflate(&m_stream, Z_NO_FLUSH);
            result.append(
                buffer.data(), static_cast<qsizetype>(buffer.size() - m_stream.avail_out));
        }
        return result;
    }

private:
    z_stream m_stream{};
    bool m_isReady = false;
};

/// The file with an inflated data set; empty when it is not deflated.
QByteArray inflatedContent(const McFilename &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray bytes = file.readAll();
    const qsizetype size = metaHeaderSize(bytes);
    QByteArray header = bytes.left(size);
    const qsizetype syntax = size > 0 ? header.indexOf(deflatedSyntax) : -1;
    if (syntax < 0) {
        return {};
    }
    // Same length: the rest of the identifier is padded with zeros.
    std::memset(header.data() + syntax, 0, std::strlen(deflatedSyntax));
    std::memcpy(header.data() + syntax, plainSyntax, std::strlen(plainSyntax));
    return header + Inflater().inflate(bytes.mid(size));
}

} // namespace

InflatedDicom::InflatedDicom(const McFilename &file)
{
    const QByteArray content = inflatedContent(file);
    if (content.isEmpty()) {
        return;
    }
    m_copy = std::make_unique<QTemporaryFile>();
    if (m_copy->open() && m_copy->write(content) == content.size() && m_copy->flush()) {
        m_file = m_copy->filesystemFileName();
    }
}

InflatedDicom::~InflatedDicom() = default;
