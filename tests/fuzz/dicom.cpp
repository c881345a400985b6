// Headers of DICOM files, as the scan and the header cache read them.
#include "platform/dicomio/DicomHeaderReader.h"
#include "platform/dicomio/DicomScanner.h"
#include "tests/fuzz/FuzzInput.h"

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static FuzzFile file("image.dcm");
    McDArray<McFilename> paths;
    paths.append(McFilename(file.write(bytesOf(data, size)).toStdString()));
    const DicomScanner::Result result = DicomScanner::scanNow(paths);
    require(result.numFiles == 1);
    require(result.patients.size() + result.problems.size() >= 1);
    (void)DicomHeaderReader::readHeader(paths[0]);
    return 0;
}
