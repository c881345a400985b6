#include "platform/dicomio/codec/VtkDicomCodec.h"

#include "platform/dicomio/codec/DicomParsing.h"
#include "platform/dicomio/codec/VtkFileHeaderReader.h"
#include "platform/dicomio/codec/VtkFrameDecoder.h"
#include "platform/util/McModule.h"

#include <vtkDICOMDictionary.h>
#include <vtkDICOMItem.h>
#include <vtkDICOMParser.h>
#include <vtkDICOMValue.h>
#include <vtkNew.h>

VtkDicomCodec::VtkDicomCodec()
{
    // The object factory and the dictionaries fill static tables on first use, without a lock.
    const vtkNew<vtkDICOMParser> parser;
    const vtkNew<vtkDICOMMetaData> data;
    vtkDICOMDictionary::FindDictEntry(vtkDICOMTag(0x0010, 0x0010));
}

std::vector<McFilename> VtkDicomCodec::listedFiles(const McFilename &mediaDirectory)
{
    const ParsedDicom parsed = parseDicom(mediaDirectory);
    const vtkDICOMValue &records = parsed.data->Get(0, DC::DirectoryRecordSequence);
    const vtkDICOMItem *const items = records.GetSequenceData();
    std::vector<McFilename> files;
    // The records are taken as they come: their links to each other are often damaged, and all that
    // counts here is which files there are.
    for (std::size_t i = 0; items && i < records.GetNumberOfValues(); ++i) {
        const vtkDICOMValue &components = items[i].Get(DC::ReferencedFileID);
        McFilename file;
        for (std::size_t part = 0; part < components.GetNumberOfValues(); ++part) {
            file /= components.GetString(part);
        }
        if (!file.empty()) {
            files.push_back(file);
        }
    }
    return files;
}

std::unique_ptr<DicomFileHeaderReader> VtkDicomCodec::makeFileHeaderReader()
{
    return std::make_unique<VtkFileHeaderReader>();
}

std::unique_ptr<DicomFrameDecoder> VtkDicomCodec::makeFrameDecoder()
{
    return std::make_unique<VtkFrameDecoder>();
}

MOVARA_MODULE(DicomCodec, VtkDicomCodec)
