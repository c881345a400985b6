#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/dicomio/DicomScanner.h"
#include "platform/util/HxParamBundle.h"
#include "platform/util/McFilename.h"
#include "platform/util/McHandle.h"

#include <QString>
#include <QTemporaryDir>

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// A folder with small DICOM files, written as a test needs them: 4 columns, 3 rows, a CT of
/// patient "Doe^Jane", unless told otherwise. The folder goes with the fixture.
class DicomFixture
{
public:
    using Changes = std::initializer_list<std::pair<const char *, std::string>>;

    static constexpr int columns = 4;
    static constexpr int rows = 3;

    [[nodiscard]] McFilename folder() const { return McFilename(m_folder.path().toStdString()); }
    [[nodiscard]] QString folderName() const { return m_folder.path(); }
    [[nodiscard]] McFilename path(const std::string &name) const { return folder() / name; }

    /// Attributes of an image; @p changes replace some, an empty value takes one away.
    static McHandle<HxParamBundle> attributes(int instance, Changes changes = {});
    /// 16-bit pixels: @p first, first + 1, ... in row order.
    static std::vector<std::int16_t> ramp(int first, int count = columns * rows);

    /// Writes one axial image at height @p z with the pixels of ramp(100 * instance).
    McFilename addSlice(int instance, double z, Changes changes = {});
    /// Writes images 1 to @p count at heights of their numbers.
    void addStack(int count, Changes changes = {});
    /// Writes images 1, 2, ... at these heights.
    void addStackAt(std::initializer_list<double> heights, Changes changes = {});
    /// Writes one image; ends the program when that fails.
    McFilename addBytes(const std::string &name, const HxParamBundle &attributes,
        std::span<const std::byte> pixels);
    McFilename add(const std::string &name, const HxParamBundle &attributes,
        const std::vector<std::int16_t> &pixels);
    McFilename addText(const std::string &name, const QByteArray &content);
    [[nodiscard]] QByteArray read(const std::string &name) const;
    /// Takes so many bytes from the end of a file.
    void cutOff(const std::string &name, int bytes) { addText(name, read(name).chopped(bytes)); }
    /// Puts other bytes in the place of some in a file, wherever they stand.
    void replace(const std::string &name, const QByteArray &before, const QByteArray &after)
    {
        addText(name, read(name).replace(before, after));
    }

    [[nodiscard]] DicomScanner::Result scan() const { return DicomScanner::scanNow({folder()}); }
    /// Scans the folder and gives its only series; ends the program when there are others.
    [[nodiscard]] McHandle<Zel::DicomDirectoryEntry> onlySeries();

private:
    QTemporaryDir m_folder;
    McDArray<McHandle<Zel::DicomDirectoryEntry>> m_patients;
};
