#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/util/McDArray.h"
#include "platform/util/McFilename.h"
#include "platform/util/McHandableThreaded.h"
#include "platform/util/McHandle.h"

#include <array>
#include <string>
#include <utility>

namespace Zel {

/// One line of the DICOM directory: a patient, study, series, or stored volume (the images of a
/// series that lie on one grid). A parent holds its children; a child knows its parent as long as
/// that lives. Built in one thread, then only read, except for the excluded mark, which belongs to
/// the GUI thread.
class MOVARA_PLATFORM_EXPORT DicomDirectoryEntry : public virtual McHandableThreaded
{
public:
    /// Bits, so that sets of levels can be tested at once. The two lowest are what can be loaded.
    enum Level : unsigned { StoredVolume = 1, Series = 2, Study = 4, Patient = 8 };

    /// What a header says about an entry. Each is kept at the level it describes.
    enum class Attribute {
        PatientName, ///< with carets, as in the file; see ExDicomUtilities::displayName()
        PatientId,
        PatientBirthDate,
        PatientSex,
        StudyUid,
        StudyId,
        StudyDate,
        StudyTime,
        StudyDescription,
        AccessionNumber,
        ReferringPhysician,
        SeriesUid,
        SeriesNumber,
        SeriesDate,
        SeriesTime,
        SeriesDescription,
        Modality,
        BodyPart,
        ProtocolName,
        Manufacturer,
        FrameOfReferenceUid,
        SopClassUid,
        TransferSyntaxUid,
        Count
    };

    /// @param uid study or series instance UID; for a stored volume that of its first image; for a
    /// patient a text of the directory's own, the same in every scan. Of series that share an
    /// instance UID, although they are of several patients or studies, each has one with an ending
    /// of its own; see seriesUid() for what the files say.
    DicomDirectoryEntry(Level level, std::string uid);

    [[nodiscard]] Level level() const { return m_level; }
    /// level() as a set of bits.
    [[nodiscard]] unsigned levelFlags() const { return m_level; }
    [[nodiscard]] bool isStoredVolume() const { return m_level == StoredVolume; }
    [[nodiscard]] bool isSeries() const { return m_level == Series; }
    [[nodiscard]] const std::string &uid() const { return m_uid; }

    /// Null at the top, or when the parent is gone.
    [[nodiscard]] DicomDirectoryEntry *parent() const { return m_parent; }
    [[nodiscard]] const McDArray<McHandle<DicomDirectoryEntry>> &children() const
    {
        return m_children;
    }
    void appendChild(const McHandle<DicomDirectoryEntry> &child);
    /// This entry or its nearest ancestor at @p level; null when there is none.
    [[nodiscard]] const DicomDirectoryEntry *ancestor(Level level) const;
    [[nodiscard]] DicomDirectoryEntry *ancestor(Level level);
    /// The topmost ancestor, in a complete tree the patient; this entry when it has no parent.
    [[nodiscard]] const DicomDirectoryEntry *topLevel() const;
    [[nodiscard]] DicomDirectoryEntry *topLevel();

    /// An attribute of this entry or, where it has none, of the nearest ancestor that has it.
    /// UTF-8; empty when unknown.
    [[nodiscard]] const std::string &text(Attribute attribute) const;
    void setText(Attribute attribute, const std::string &value);

    [[nodiscard]] const std::string &patientName() const { return text(Attribute::PatientName); }
    [[nodiscard]] const std::string &patientId() const { return text(Attribute::PatientId); }
    /// Eight digits, year first.
    [[nodiscard]] const std::string &patientBirthDate() const
    {
        return text(Attribute::PatientBirthDate);
    }
    [[nodiscard]] const std::string &studyUid() const { return text(Attribute::StudyUid); }
    [[nodiscard]] const std::string &seriesUid() const { return text(Attribute::SeriesUid); }
    [[nodiscard]] const std::string &modality() const { return text(Attribute::Modality); }

    /// Files of a stored volume, phase by phase in geometric order, each once; of a series, those
    /// of its stored volumes and then those that hold no image. Empty above.
    [[nodiscard]] const McDArray<McFilename> &files() const { return m_files; }
    void setFiles(McDArray<McFilename> files) { m_files = std::move(files); }
    /// Images (frames of multi-frame files count each) in this entry and below.
    [[nodiscard]] int numImages() const;
    void setNumImages(int count) { m_numImages = count; }
    /// Columns, rows and slices of a stored volume's grid; 0 elsewhere.
    [[nodiscard]] const std::array<int, 3> &dimensions() const { return m_dimensions; }
    void setDimensions(const std::array<int, 3> &dimensions) { m_dimensions = dimensions; }
    /// What tells the volumes at the same positions apart, e.g. "b 500"; one text a phase, empty
    /// when there is only one. Of a series: those of its largest stored volume.
    [[nodiscard]] const McDArray<std::string> &phases() const;
    void setPhases(const McDArray<std::string> &phases) { m_phases = phases; }

    /// Whether everything that the headers announce was found, here and below.
    [[nodiscard]] bool isComplete() const;
    void setIncomplete() { m_incomplete = true; }
    /// Whether loading was ruled out, here or above.
    [[nodiscard]] bool isExcluded() const;
    void setExcluded(bool excluded) { m_excluded = excluded; }
    /// Whether there are images in this entry or below, counted or not: stored volumes consist of
    /// them.
    [[nodiscard]] bool isImage() const;
    /// Whether this is a series of presentation states (modality "PR").
    [[nodiscard]] bool isPresentationState() const { return modality() == "PR"; }

    /// What people should know: why something is refused, what is odd. Plain English sentences.
    [[nodiscard]] const McDArray<std::string> &remarks() const { return m_remarks; }
    /// Adds a remark unless it is there already.
    void addRemark(const std::string &remark);

protected:
    ~DicomDirectoryEntry() override;

private:
    [[nodiscard]] const DicomDirectoryEntry *largestChild() const;

    Level m_level;
    std::string m_uid;
    DicomDirectoryEntry *m_parent = nullptr;
    McDArray<McHandle<DicomDirectoryEntry>> m_children;
    std::array<std::string, static_cast<std::size_t>(Attribute::Count)> m_texts;
    McDArray<McFilename> m_files;
    int m_numImages = 0;
    std::array<int, 3> m_dimensions{};
    McDArray<std::string> m_phases;
    McDArray<std::string> m_remarks;
    bool m_incomplete = false;
    bool m_excluded = false;
};

} // namespace Zel
