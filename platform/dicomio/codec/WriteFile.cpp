#include "platform/dicomio/codec/VtkDicomCodec.h"

#include "platform/dicom/ExDicomUtilities.h"
#include "platform/dicomio/codec/DicomParsing.h"
#include "platform/util/McStringTokenizer.h"

#include <vtkDICOMCompiler.h>
#include <vtkDICOMDictionary.h>
#include <vtkDICOMTagPath.h>
#include <vtkNew.h>

#include <array>
#include <cstdio>
#include <optional>
#include <vector>

namespace {

constexpr const char *explicitLittleEndian = "1.2.840.10008.1.2.1";

struct PathStep
{
    vtkDICOMTag tag;
    unsigned item = 0;
};

std::optional<PathStep> parseStep(const std::string &text)
{
    unsigned group = 0;
    unsigned element = 0;
    PathStep step;
    if (std::sscanf(text.c_str(), "G%4x-%4x[%u]", &group, &element, &step.item) < 2) {
        return std::nullopt;
    }
    step.tag = vtkDICOMTag(static_cast<int>(group), static_cast<int>(element));
    return step;
}

/// The path that @p name tells; empty (size 0) when it is none.
vtkDICOMTagPath parsePath(const std::string &name)
{
    McStringTokenizer tokens(name, ".");
    vtkDICOMTagPath path;
    unsigned item = 0;
    while (tokens.hasMoreTokens()) {
        const std::optional<PathStep> step = parseStep(tokens.nextToken());
        if (!step) {
            return {};
        }
        path = path.GetSize() == 0 ? vtkDICOMTagPath(step->tag)
                                   : vtkDICOMTagPath(path, item, step->tag);
        item = step->item;
    }
    return path;
}

/// Fills the data set. The character set comes first, since it decides how texts are kept.
std::string fill(vtkDICOMMetaData *data, const HxParamBundle &attributes)
{
    data->Set(DC::SpecificCharacterSet, "ISO_IR 192");
    for (const auto &[name, value] : attributes.values()) {
        const vtkDICOMTagPath path = parsePath(name);
        if (path.GetSize() == 0) {
            return "\"" + name + "\" names no attribute.";
        }
        const bool isMetaHeader = path.GetHead().GetGroup() == 0x0002;
        if (!isMetaHeader && path.GetHead() != vtkDICOMTag(DC::SpecificCharacterSet)) {
            path.HasTail() ? data->Set(path, value) : data->Set(path.GetHead(), value);
        }
    }
    return {};
}

std::string missingIdentifier(const HxParamBundle &attributes)
{
    static constexpr std::array<const char *, 4> identifiers{
        "G0008-0016", "G0008-0018", "G0020-000D", "G0020-000E"};
    for (const char *const name : identifiers) {
        if (ExDicomUtilities::findTag(attributes, name).empty()) {
            return std::string("The attribute ") + name + " is missing.";
        }
    }
    return {};
}

void configure(vtkDICOMCompiler *compiler, const McFilename &file, const HxParamBundle &attributes)
{
    const auto text
        = [&attributes](const char *name) { return ExDicomUtilities::findTag(attributes, name); };
    compiler->SetFileName(file.c_str());
    compiler->SetTransferSyntaxUID(explicitLittleEndian);
    compiler->SetSOPInstanceUID(text("G0008-0018").c_str());
    compiler->SetSeriesInstanceUID(text("G0020-000E").c_str());
    compiler->SetStudyInstanceUID(text("G0020-000D").c_str());
}

} // namespace

std::string VtkDicomCodec::write(
    const McFilename &file, const HxParamBundle &attributes, std::span<const std::byte> pixels)
{
    std::string error = missingIdentifier(attributes);
    if (!error.empty()) {
        return error;
    }
    const vtkNew<vtkDICOMMetaData> data;
    error = fill(data, attributes);
    if (!error.empty()) {
        return error;
    }
    if (!pixels.empty()) {
        // The header ends with the pixels' element, whose length the compiler works out itself.
        const bool isBytes = data->Get(DC::BitsAllocated).AsInt() <= 8;
        data->Set(DC::PixelData, vtkDICOMValue(isBytes ? vtkDICOMVR::OB : vtkDICOMVR::OW));
    }
    VtkMessages messages;
    const vtkNew<vtkDICOMCompiler> compiler;
    messages.observe(compiler);
    configure(compiler, file, attributes);
    compiler->SetMetaData(data);
    compiler->WriteHeader();
    if (compiler->GetErrorCode() == 0 && !pixels.empty()) {
        compiler->WritePixelData(reinterpret_cast<const unsigned char *>(pixels.data()),
            static_cast<vtkIdType>(pixels.size()));
    }
    if (compiler->GetErrorCode() != 0) {
        compiler->CloseAndRemove();
        return messages.firstError().empty() ? "The file cannot be written."
                                             : messages.firstError();
    }
    compiler->Close();
    return {};
}
