#include "platform/dicomio/codec/VtkDicomCodec.h"

#include "platform/dicomio/codec/DicomParsing.h"

#include <vtkDICOMDictEntry.h>
#include <vtkDICOMDictionary.h>
#include <vtkDICOMItem.h>
#include <vtkDICOMTag.h>
#include <vtkDICOMValue.h>

#include <array>
#include <cstdio>

namespace {

constexpr std::size_t mostValues = 64;
constexpr std::uint32_t undefinedLength = 0xffffffff;

std::string tagText(vtkDICOMTag tag)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "(%04X,%04X)", tag.GetGroup(), tag.GetElement());
    return text.data();
}

std::string counted(std::size_t count, const char *what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::string valueText(const vtkDICOMValue &value)
{
    if (isBinary(value.GetVR())) {
        return '(' + counted(value.GetVL(), "byte") + ')';
    }
    const std::size_t count = value.GetNumberOfValues();
    if (count <= mostValues) {
        return value.AsUTF8String();
    }
    std::string text;
    for (std::size_t i = 0; i < mostValues; ++i) {
        value.AppendValueToUTF8String(text, i);
        text += '\\';
    }
    return text + "… (" + counted(count, "value") + ')';
}

/// Of a data set or of an item, both of which are walked and asked for names alike.
template <typename DataSet>
std::vector<DicomAttribute> attributesOf(DataSet &set);

DicomAttribute itemOf(const vtkDICOMItem &item, std::size_t number)
{
    DicomAttribute result;
    result.tag = "Item " + std::to_string(number);
    result.children = attributesOf(item);
    return result;
}

DicomAttribute sequenceOf(DicomAttribute attribute, const vtkDICOMValue &value)
{
    const std::size_t count = value.GetNumberOfValues();
    attribute.value = '(' + counted(count, "item") + ')';
    attribute.children.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        attribute.children.push_back(itemOf(value.GetItem(i), i + 1));
    }
    return attribute;
}

template <typename DataSet>
std::vector<DicomAttribute> attributesOf(DataSet &set)
{
    std::vector<DicomAttribute> found;
    for (vtkDICOMDataElementIterator each = set.Begin(); each != set.End(); ++each) {
        const vtkDICOMTag tag = each->GetTag();
        const vtkDICOMValue &value = each->GetValue();
        const vtkDICOMDictEntry entry = set.FindDictEntry(tag);
        DicomAttribute attribute;
        attribute.tag = tagText(tag);
        attribute.name = entry.IsValid() ? entry.GetName() : "";
        attribute.vr = value.GetVR().GetText();
        if (value.GetVR() == vtkDICOMVR::SQ) {
            found.push_back(sequenceOf(std::move(attribute), value));
        } else {
            attribute.value = value.IsValid() ? valueText(value) : std::string();
            found.push_back(std::move(attribute));
        }
    }
    return found;
}

DicomAttribute pixels(const ParsedDicom &parsed)
{
    DicomAttribute result;
    result.tag = tagText(DC::PixelData);
    result.name = "PixelData";
    result.vr = "OW";
    result.value = parsed.pixelDataLength == undefinedLength
        ? "(compressed)"
        : '(' + counted(parsed.pixelDataLength, "byte") + ')';
    return result;
}

} // namespace

DicomAttributes VtkDicomCodec::readAttributes(const McFilename &file)
{
    const ParsedDicom parsed = parseDicom(file);
    DicomAttributes result;
    result.error = parsed.error;
    result.attributes = attributesOf(*parsed.data);
    if (parsed.pixelDataFound) {
        result.attributes.push_back(pixels(parsed));
    }
    return result;
}
