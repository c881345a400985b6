#include "platform/dicomio/codec/DicomLengthCheck.h"

#include <vtkDICOMDictEntry.h>
#include <vtkDICOMDictionary.h>
#include <vtkDICOMTag.h>
#include <vtkDICOMVR.h>

#include <QFile>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

namespace {

constexpr std::uint32_t undefinedLength = 0xffffffff;
constexpr std::uint32_t itemTag = 0xfffee000;
constexpr std::uint32_t itemEndTag = 0xfffee00d;
constexpr std::uint32_t sequenceEndTag = 0xfffee0dd;
constexpr std::uint32_t transferSyntaxTag = 0x00020010;
constexpr std::uint32_t pixelDataTag = 0x7fe00010;
constexpr std::uint32_t metaGroup = 0x0002;
constexpr std::uint32_t delimiterGroup = 0xfffe;
constexpr std::int64_t shortHead = 8;
constexpr std::int64_t longHead = 12;
/// Each level takes the parser some of its stack.
constexpr std::size_t deepestNesting = 64;

std::uint32_t groupOf(std::uint32_t tag)
{
    return tag >> 16;
}

/// The bytes of a file by their places, read in blocks.
class FileBytes
{
public:
    explicit FileBytes(const McFilename &name)
        : m_file(name)
    {
        m_size = m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? m_file.size() : 0;
    }
    [[nodiscard]] std::int64_t size() const { return m_size; }

    /// Null when the file ends before.
    const unsigned char *at(std::int64_t place, std::int64_t count)
    {
        if (place < m_start || place + count > m_start + m_filled) {
            m_start = place;
            const bool isInside = place < m_size && m_file.seek(place);
            m_filled = isInside ? m_file.read(m_block.data(), blockSize) : 0;
        }
        const bool isThere = place + count <= m_start + m_filled;
        return isThere ? reinterpret_cast<const unsigned char *>(m_block.data()) + (place - m_start)
                       : nullptr;
    }

private:
    static constexpr std::int64_t blockSize = 8192;
    QFile m_file;
    std::int64_t m_size = 0;
    std::int64_t m_start = 0;
    std::int64_t m_filled = 0;
    std::array<char, blockSize> m_block{};
};

struct Encoding
{
    bool isImplicit = false;
    bool isBigEndian = false;
    /// Items are pieces of a compressed image, not lists of elements.
    bool isRaw = false;
};

std::uint32_t number(const unsigned char *bytes, int count, bool isBigEndian)
{
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i) {
        value = value << 8 | bytes[isBigEndian ? i : count - 1 - i];
    }
    return value;
}

struct ElementHead
{
    std::uint32_t tag = 0;
    vtkDICOMVR vr;
    std::uint32_t length = 0;
    std::int64_t size = shortHead;
};

/// The type of values that the dictionary has for @p tag.
vtkDICOMVR knownType(std::uint32_t tag)
{
    const vtkDICOMTag dicomTag(
        static_cast<unsigned short>(groupOf(tag)), static_cast<unsigned short>(tag & 0xffff));
    const vtkDICOMDictEntry entry = vtkDICOMDictionary::FindDictEntry(dicomTag);
    return entry.IsValid() ? entry.GetVR() : vtkDICOMVR(vtkDICOMVR::UN);
}

/// Goes from element to element, into sequences too, up to the pixels.
class HeaderWalk
{
public:
    explicit HeaderWalk(const McFilename &file)
        : m_bytes(file)
        , m_open{Encoding{}}
    { }

    std::string run()
    {
        m_place = start();
        std::string fault;
        ElementHead head;
        while (fault.empty() && readHead(head) && !isAtPixels(head)) {
            if (m_isMeta && m_open.size() == 1 && groupOf(head.tag) != metaGroup) {
                m_isMeta = false;
                m_open.front() = dataEncoding();
                fault = impossibleEncoding();
            } else {
                fault = pass(head);
            }
        }
        return fault;
    }

private:
    std::int64_t start();
    Encoding dataEncoding();
    [[nodiscard]] std::string impossibleEncoding() const
    {
        const Encoding &encoding = m_open.front();
        return encoding.isImplicit && encoding.isBigEndian
            ? "No encoding has types of values left out and the highest byte first."
            : "";
    }
    bool readHead(ElementHead &head);
    bool readExplicit(ElementHead &head, const unsigned char *bytes);
    std::string pass(const ElementHead &head);
    std::string open(const ElementHead &head);
    std::string passDefined(const ElementHead &head);
    bool holdsElements(const ElementHead &head);
    bool isAtPixels(const ElementHead &head);

    FileBytes m_bytes;
    std::int64_t m_place = 0;
    bool m_isMeta = true;
    std::uint32_t m_previousTag = 0;
    bool m_isInOrder = true;
    std::string m_transferSyntax;
    /// That of the data set, then those of the values of undefined length around the place.
    std::vector<Encoding> m_open;
};

/// Behind preamble and mark, either of which may be missing.
std::int64_t HeaderWalk::start()
{
    constexpr std::int64_t preamble = 128;
    constexpr std::int64_t markSize = 4;
    for (const std::int64_t place : {preamble, std::int64_t(0)}) {
        const unsigned char *mark = m_bytes.at(place, markSize);
        if (mark && std::memcmp(mark, "DICM", markSize) == 0) {
            return place + markSize;
        }
    }
    return 0;
}

/// Of the data set that begins here; guessed from its first element when the file does not tell.
Encoding HeaderWalk::dataEncoding()
{
    if (m_transferSyntax == "1.2.840.10008.1.2.2") {
        return {.isBigEndian = true};
    }
    if (m_transferSyntax == "1.2.840.10008.1.2" || m_transferSyntax == "1.2.840.113619.5.2") {
        return {.isImplicit = true};
    }
    const unsigned char *first = m_bytes.at(m_place, shortHead);
    if (!m_transferSyntax.empty() || !first) {
        return {};
    }
    return {.isImplicit = !vtkDICOMVR(first + 4).IsValid(),
        .isBigEndian = first[0] == 0 && first[1] == 8};
}

bool HeaderWalk::readHead(ElementHead &head)
{
    const Encoding &encoding = m_open.back();
    const unsigned char *bytes = m_bytes.at(m_place, shortHead);
    if (!bytes) {
        return false;
    }
    head = ElementHead();
    head.tag
        = number(bytes, 2, encoding.isBigEndian) << 16 | number(bytes + 2, 2, encoding.isBigEndian);
    if (!encoding.isImplicit && groupOf(head.tag) != delimiterGroup) {
        return readExplicit(head, bytes);
    }
    // The length of a group is a number of four bytes, whatever its own length says.
    const bool isGroupLength = (head.tag & 0xffff) == 0;
    head.length = isGroupLength ? 4 : number(bytes + 4, 4, encoding.isBigEndian);
    return true;
}

bool HeaderWalk::readExplicit(ElementHead &head, const unsigned char *bytes)
{
    const bool isBigEndian = m_open.back().isBigEndian;
    const auto isPrintable = [](unsigned char c) { return c >= ' ' && c <= '~'; };
    head.vr = vtkDICOMVR(bytes + 4);
    if (!head.vr.IsValid()) {
        head.vr = knownType(head.tag);
        if (!isPrintable(bytes[4]) || !isPrintable(bytes[5])) {
            head.length = number(bytes + 4, 4, isBigEndian); // written as if it were implicit
            return true;
        }
    }
    if (head.vr.HasLongVL()) {
        head.size = longHead;
        bytes = m_bytes.at(m_place, longHead);
        head.length = bytes ? number(bytes + 8, 4, isBigEndian) : 0;
    } else {
        head.length = number(bytes + 6, 2, isBigEndian);
    }
    return bytes;
}

/// The parser ends there too, unless the elements are out of order or there are no pixels.
bool HeaderWalk::isAtPixels(const ElementHead &head)
{
    if (m_open.size() > 1) {
        return false;
    }
    m_isInOrder = m_isInOrder && head.tag >= m_previousTag;
    m_previousTag = head.tag;
    return m_isInOrder && head.tag == pixelDataTag && head.length != 0;
}

std::string HeaderWalk::pass(const ElementHead &head)
{
    if (head.tag == itemEndTag || head.tag == sequenceEndTag) {
        if (m_open.size() > 1) {
            m_open.pop_back();
        }
        m_place += head.size;
        return {};
    }
    const bool isOpen = head.length == undefinedLength && !m_isMeta;
    return isOpen ? open(head) : passDefined(head);
}

std::string HeaderWalk::open(const ElementHead &head)
{
    if (m_open.size() > deepestNesting) {
        return "Sequences are nested too deeply.";
    }
    Encoding inner = m_open.back();
    if (head.vr == vtkDICOMVR::UN) {
        inner = {.isImplicit = true};
    }
    inner.isRaw = !inner.isImplicit && head.tag != itemTag && head.vr != vtkDICOMVR::SQ;
    m_open.push_back(inner);
    m_place += head.size;
    return {};
}

std::string HeaderWalk::passDefined(const ElementHead &head)
{
    const bool isTooLong = head.length > m_bytes.size() - m_place - head.size;
    if (isTooLong) {
        std::array<char, 80> text{};
        std::snprintf(text.data(), text.size(),
            "In (%04X,%04X): Item length exceeds the bytes remaining in file.", groupOf(head.tag),
            head.tag & 0xffff);
        return text.data();
    }
    if (head.tag == transferSyntaxTag && m_isMeta) {
        const unsigned char *text = m_bytes.at(m_place + head.size, head.length);
        m_transferSyntax.assign(reinterpret_cast<const char *>(text), text ? head.length : 0);
        m_transferSyntax.erase(m_transferSyntax.find_last_not_of(std::string_view(" \0", 2)) + 1);
    }
    m_place += head.size + (holdsElements(head) ? 0 : std::int64_t(head.length));
    return {};
}

/// Whether elements follow at once, so that the walk goes on into the value.
bool HeaderWalk::holdsElements(const ElementHead &head)
{
    if (head.tag == itemTag) {
        return !m_open.back().isRaw;
    }
    if (m_open.back().isImplicit && head.length >= shortHead) {
        const unsigned char *value = m_bytes.at(m_place + head.size, 4);
        return value && number(value, 4, false) == 0xe000fffe;
    }
    return head.vr == vtkDICOMVR::SQ;
}

} // namespace

std::string impossibleLengthIn(const McFilename &file)
{
    return HeaderWalk(file).run();
}
