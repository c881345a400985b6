#pragma once

#include "platform/util/McFilename.h"

#include <vtkDICOMMetaData.h>
#include <vtkSmartPointer.h>

#include <cstdint>
#include <memory>
#include <string>

class vtkDICOMItem;
class vtkObject;

/// Collects the errors and warnings of a VTK object, which would otherwise go to the standard error
/// stream. Must outlive the object's activity.
class VtkMessages
{
public:
    void observe(vtkObject *object);
    /// The first error reported so far, without VTK's decoration; empty when there was none.
    [[nodiscard]] const std::string &firstError() const { return m_firstError; }
    void clear() { m_firstError.clear(); }
    void take(unsigned long event, const char *text);

private:
    std::string m_firstError;
};

/// What one walk through a file's header gives. The walk ends where the pixels begin.
struct ParsedDicom
{
    vtkSmartPointer<vtkDICOMMetaData> data;
    /// Why the header could not be read to its end; empty when it could.
    std::string error;
    bool pixelDataFound = false;
    /// Bytes of the pixel data; 0xffffffff when they are compressed.
    std::uint32_t pixelDataLength = 0;
    std::int64_t pixelDataOffset = 0;
    /// Of a deflated file: of its inflated content.
    std::int64_t fileSize = 0;
};

/// Parses the headers of files, one after the other. Belongs to one thread.
class DicomParser
{
public:
    /// @param wanted which attributes are kept, with empty values; null for all. A few are faster.
    explicit DicomParser(const vtkDICOMItem *wanted = nullptr);
    ~DicomParser();
    DicomParser(const DicomParser &) = delete;
    DicomParser &operator=(const DicomParser &) = delete;

    /// @return its data are overwritten by the next call.
    ParsedDicom parse(const McFilename &file);

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// Parses the header of @p file and keeps all attributes. Any thread.
ParsedDicom parseDicom(const McFilename &file);
/// Whether values of this type are plain bytes, which no text stands for.
bool isBinary(vtkDICOMVR type);
/// Whether the data set behind the meta header is deflated as a whole.
bool isDeflated(vtkDICOMMetaData *data);
