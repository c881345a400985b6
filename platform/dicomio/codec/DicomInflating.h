#pragma once

#include "platform/util/McFilename.h"

#include <memory>

class QTemporaryFile;

/// Transfer syntax of files whose data set is deflated.
inline constexpr const char *deflatedSyntax = "1.2.840.10008.1.2.1.99";

/// A copy of a deflated DICOM file with its data set inflated, since the parser takes only plain
/// ones. The copy goes when the object goes.
class InflatedDicom
{
public:
    explicit InflatedDicom(const McFilename &file);
    ~InflatedDicom();
    InflatedDicom(const InflatedDicom &) = delete;
    InflatedDicom &operator=(const InflatedDicom &) = delete;

    /// The name of the copy; empty when @p file is not deflated, is damaged, or the copy could not
    /// be written.
    [[nodiscard]] const McFilename &file() const { return m_file; }

private:
    std::unique_ptr<QTemporaryFile> m_copy;
    McFilename m_file;
};
