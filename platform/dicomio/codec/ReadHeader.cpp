#include "platform/dicomio/codec/VtkDicomCodec.h"

#include "platform/dicom/ExDicomUtilities.h"
#include "platform/dicomio/codec/DicomParsing.h"

#include <vtkDICOMDictionary.h>
#include <vtkDICOMTag.h>
#include <vtkDICOMValue.h>

#include <initializer_list>

namespace {

/// Longer values are tables or reports, not attributes that anybody asks for by name.
constexpr unsigned longestValue = 4096;

std::string keyOf(vtkDICOMTag tag)
{
    return ExDicomUtilities::tagName(tag.GetGroup(), tag.GetElement());
}

bool isText(const vtkDICOMValue &value)
{
    return value.IsValid() && value.GetVR() != vtkDICOMVR::SQ && !isBinary(value.GetVR())
        && value.GetVL() <= longestValue;
}

/// Multi-frame files keep these in the functional groups of each frame.
void addFrameAttributes(vtkDICOMMetaData *data, HxParamBundle &bundle)
{
    const std::initializer_list<vtkDICOMTag> tags{DC::SliceThickness, DC::SpacingBetweenSlices,
        DC::PixelSpacing, DC::ImagePositionPatient, DC::ImageOrientationPatient, DC::WindowCenter,
        DC::WindowWidth, DC::RescaleIntercept, DC::RescaleSlope, DC::RescaleType,
        DC::EffectiveEchoTime, DC::DiffusionBValue};
    for (const vtkDICOMTag tag : tags) {
        const vtkDICOMValue &value = data->Get(0, 0, tag);
        if (value.IsValid() && !data->Has(tag)) {
            bundle.set(keyOf(tag), value.AsUTF8String());
        }
    }
}

} // namespace

McHandle<HxParamBundle> VtkDicomCodec::readHeader(const McFilename &file)
{
    const ParsedDicom parsed = parseDicom(file);
    const bool isDicom = parsed.data->Has(DC::SOPClassUID) || parsed.data->Has(DC::SOPInstanceUID)
        || parsed.data->Has(DC::StudyInstanceUID) || parsed.pixelDataFound;
    if (!isDicom) {
        return nullptr;
    }
    McHandle<HxParamBundle> bundle(new HxParamBundle);
    for (vtkDICOMDataElementIterator element = parsed.data->Begin(); element != parsed.data->End();
         ++element) {
        const vtkDICOMValue &value = element->GetValue();
        if (isText(value)) {
            bundle->set(keyOf(element->GetTag()), value.AsUTF8String());
        }
    }
    addFrameAttributes(parsed.data, *bundle);
    return bundle;
}
