#include "platform/dicomio/DicomDirectoryBuilder.h"

#include "platform/dicomio/DicomCompleteness.h"
#include "platform/dicomio/DicomParallel.h"
#include "platform/dicomio/DicomTexts.h"
#include "platform/dicomio/DicomVolumePlan.h"

#include <QByteArray>
#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace {

using Zel::DicomDirectoryEntry;
using Attribute = DicomDirectoryEntry::Attribute;
using EntryHandle = McHandle<DicomDirectoryEntry>;
using Headers = std::vector<const DicomFileHeader *>;

constexpr std::array patientAttributes{Attribute::PatientName, Attribute::PatientId,
    Attribute::PatientBirthDate, Attribute::PatientSex};
constexpr std::array studyAttributes{Attribute::StudyUid, Attribute::StudyId, Attribute::StudyDate,
    Attribute::StudyTime, Attribute::StudyDescription, Attribute::AccessionNumber,
    Attribute::ReferringPhysician};
constexpr std::array seriesAttributes{Attribute::SeriesUid, Attribute::SeriesNumber,
    Attribute::SeriesDate, Attribute::SeriesTime, Attribute::SeriesDescription, Attribute::Modality,
    Attribute::BodyPart, Attribute::ProtocolName, Attribute::Manufacturer,
    Attribute::FrameOfReferenceUid, Attribute::SopClassUid, Attribute::TransferSyntaxUid};

/// The first text that any of the files has.
template <typename Attributes>
void copyTexts(const Headers &headers, const Attributes &attributes, DicomDirectoryEntry &entry)
{
    for (const Attribute attribute : attributes) {
        const auto told = std::find_if(headers.begin(), headers.end(),
            [attribute](const auto *header) { return !header->text(attribute).empty(); });
        if (told != headers.end()) {
            entry.setText(attribute, (*told)->text(attribute));
        }
    }
}

/// Patients are one only when everything that identifies them agrees; two people must never become
/// one by a missing ID.
std::string patientKey(const DicomFileHeader &header)
{
    return header.text(Attribute::PatientId) + '\n' + header.text(Attribute::PatientName) + '\n'
        + header.text(Attribute::PatientBirthDate);
}

/// A file that names no series is one of its own.
std::string seriesKey(const DicomFileHeader &header)
{
    const std::string &uid = header.text(Attribute::SeriesUid);
    return uid.empty() ? "file:" + header.file.string() : uid;
}

/// Tells a series from another with the same UID in another study or of another patient.
std::string placedUid(const std::string &uid, const DicomFileHeader &header)
{
    const std::string place = patientKey(header) + '\n' + header.text(Attribute::StudyUid);
    constexpr qsizetype digits = 8;
    return uid + '+'
        + QCryptographicHash::hash(QByteArray::fromStdString(place), QCryptographicHash::Sha1)
              .toHex()
              .left(digits)
              .toStdString();
}

struct OtherObject
{
    const char *modality;
    const char *remark;
};

constexpr std::array otherObjects{
    OtherObject{"PR", "Presentation state: tells how images of another series are to be shown."},
    OtherObject{"KO", "Key object selection: holds no images of its own."},
    OtherObject{"SR", "Structured report: cannot be shown as an image."},
    OtherObject{"SEG", "Segmentation: cannot be shown as an image."},
    OtherObject{"RTSTRUCT", "Radiotherapy structure set: cannot be shown as an image."},
    OtherObject{"RTPLAN", "Radiotherapy plan: cannot be shown as an image."},
    OtherObject{"RTDOSE", "Radiotherapy dose: cannot be shown as an image."},
    OtherObject{"RTIMAGE", "Radiotherapy image: cannot be shown."},
    OtherObject{"ECG", "Electrocardiogram: cannot be shown as an image."},
};

std::string otherObjectRemark(const std::string &modality)
{
    const auto *const known = std::find_if(otherObjects.begin(), otherObjects.end(),
        [&modality](const OtherObject &object) { return modality == object.modality; });
    return known != otherObjects.end() ? known->remark : "This series holds no images.";
}

void noteMissing(const std::vector<std::string> &missing, DicomDirectoryEntry &entry)
{
    for (const std::string &remark : missing) {
        entry.setIncomplete();
        entry.addRemark(remark);
    }
}

EntryHandle makeVolume(const DicomVolumePlan &plan)
{
    EntryHandle volume(new DicomDirectoryEntry(DicomDirectoryEntry::StoredVolume, plan.uid));
    McDArray<McFilename> files;
    for (const DicomFileHeader *const file : plan.files) {
        files.append(file->file);
    }
    McDArray<std::string> phases;
    for (const DicomVolumePlan::Phase &phase : plan.phases) {
        if (plan.phases.size() > 1) {
            phases.append(phase.label);
        }
    }
    volume->setFiles(std::move(files));
    volume->setPhases(phases);
    volume->setNumImages(plan.numImages);
    volume->setDimensions(plan.dimensions);
    volume->setExcluded(!plan.refusal.empty());
    if (!plan.isComplete) {
        volume->setIncomplete();
    }
    for (const std::string &remark : plan.remarks) {
        volume->addRemark(remark);
    }
    return volume;
}

void addVolumes(const Headers &images, DicomDirectoryEntry &series)
{
    McDArray<McFilename> files = series.files();
    for (const DicomVolumePlan &plan : planVolumes(images)) {
        const EntryHandle volume = makeVolume(plan);
        series.appendChild(volume);
        files.append(volume->files());
    }
    series.setFiles(std::move(files));
    if (series.children().size() > 1) {
        series.addRemark("The images make " + std::to_string(series.children().size())
            + " separate volumes: they differ in size, direction or place.");
    }
}

void remarkOnMissingUids(const DicomFileHeader &file, DicomDirectoryEntry &series)
{
    if (file.text(Attribute::SeriesUid).empty()) {
        series.addRemark("The file names no series; it stands alone.");
    }
    if (file.text(Attribute::StudyUid).empty()) {
        series.addRemark("The file names no study.");
    }
}

EntryHandle makeSeries(const std::string &uid, const Headers &files, const Headers &study)
{
    EntryHandle series(new DicomDirectoryEntry(DicomDirectoryEntry::Series, uid));
    copyTexts(files, seriesAttributes, *series);
    remarkOnMissingUids(*files.front(), *series);
    Headers images;
    McDArray<McFilename> others;
    for (const DicomFileHeader *const file : files) {
        if (file->isImage) {
            images.push_back(file);
        } else {
            others.append(file->file);
        }
    }
    const std::vector<std::string> missing = DicomCompleteness::missingFromSeries(files, study);
    noteMissing(missing, *series);
    addVolumes(images, *series);
    if (!missing.empty()) {
        for (const EntryHandle &volume : series->children()) {
            volume->setIncomplete(); // What is missing may be from any of them.
        }
    }
    if (images.empty()) {
        series->addRemark(otherObjectRemark(series->modality()));
    }
    if (!others.isEmpty()) {
        McDArray<McFilename> all = series->files();
        all.append(others);
        series->setFiles(std::move(all));
    }
    return series;
}

template <typename KeyOf>
void appendSorted(std::vector<EntryHandle> &children, KeyOf keyOf, DicomDirectoryEntry &parent)
{
    std::sort(children.begin(), children.end(),
        [&keyOf](const auto &a, const auto &b) { return keyOf(*a) < keyOf(*b); });
    for (const EntryHandle &child : children) {
        parent.appendChild(child);
    }
}

/// The series of a study that presentation states are about, by the UIDs of the states' series. A
/// state's series is listed behind that which it is about, and says so.
std::map<std::string, const DicomDirectoryEntry *> describedSeries(
    const Headers &files, const std::vector<EntryHandle> &children)
{
    std::map<std::string, std::string> references;
    for (const DicomFileHeader *const file : files) {
        if (!file->referencedSeriesUid.empty()) {
            references.emplace(file->text(Attribute::SeriesUid), file->referencedSeriesUid);
        }
    }
    std::map<std::string, const DicomDirectoryEntry *> described;
    for (const EntryHandle &state : children) {
        const std::string &about = references[state->seriesUid()];
        const auto found = std::find_if(children.begin(), children.end(),
            [&about](const EntryHandle &each) { return each->seriesUid() == about; });
        if (state->isPresentationState() && !about.empty() && found != children.end()) {
            described[state->seriesUid()] = found->get();
            const std::string &number = (*found)->text(Attribute::SeriesNumber);
            state->addRemark("It is about series " + (number.empty() ? about : number) + ".");
        }
    }
    return described;
}

/// Files that belong together, and the entry made of them.
struct SeriesFiles
{
    Headers files;
    EntryHandle entry;
};

struct StudyFiles
{
    Headers files;
    std::map<std::string, SeriesFiles> series; ///< under seriesKey()
};

struct PatientFiles
{
    Headers files;
    std::map<std::string, StudyFiles> studies; ///< under their UIDs
};

/// Under patientKey().
using Groups = std::map<std::string, PatientFiles>;

Groups grouped(const Headers &headers)
{
    struct Place
    {
        PatientFiles *patient;
        StudyFiles *study;
        SeriesFiles *series;
    };
    Groups groups;
    // Files that share their texts belong together. But what names no series stands alone.
    std::unordered_map<const DicomFileHeader::Texts *, Place> known;
    for (const DicomFileHeader *const header : headers) {
        Place place{};
        const auto found = known.find(header->texts.get());
        if (found != known.end()) {
            place = found->second;
        } else {
            place.patient = &groups[patientKey(*header)];
            place.study = &place.patient->studies[header->text(Attribute::StudyUid)];
            place.series = &place.study->series[seriesKey(*header)];
            if (!header->text(Attribute::SeriesUid).empty()) {
                known.emplace(header->texts.get(), place);
            }
        }
        place.patient->files.push_back(header);
        place.study->files.push_back(header);
        place.series->files.push_back(header);
    }
    return groups;
}

/// Most of the work, and what can be done for each series by itself.
void makeAllSeries(Groups &groups)
{
    struct Task
    {
        const std::string *key;
        SeriesFiles *series;
        const Headers *study;
    };
    std::vector<Task> tasks;
    std::map<std::string_view, int> places;
    for (auto &[patientKey, patient] : groups) {
        for (auto &[studyUid, study] : patient.studies) {
            for (auto &[key, series] : study.series) {
                tasks.push_back({&key, &series, &study.files});
                ++places[key];
            }
        }
    }
    // Copies that were given to another patient keep their UIDs; one patient's images must never be
    // taken for another's.
    inParallel(tasks.size(), [&tasks, &places](std::size_t i) {
        const auto &[key, series, study] = tasks[i];
        const bool isShared = places.at(*key) > 1;
        const std::string uid = isShared ? placedUid(*key, *series->files.front()) : *key;
        series->entry = makeSeries(uid, series->files, *study);
    });
}

EntryHandle makeStudy(const std::string &uid, const StudyFiles &group)
{
    EntryHandle study(new DicomDirectoryEntry(DicomDirectoryEntry::Study, uid));
    copyTexts(group.files, studyAttributes, *study);
    std::vector<EntryHandle> children;
    for (const auto &[seriesUid, series] : group.series) {
        children.push_back(series.entry);
    }
    const std::map<std::string, const DicomDirectoryEntry *> described
        = describedSeries(group.files, children);
    const auto key = [&described](const DicomDirectoryEntry &series) {
        const auto found
            = series.isPresentationState() ? described.find(series.seriesUid()) : described.end();
        const DicomDirectoryEntry &place = found == described.end() ? series : *found->second;
        const std::string &number = place.text(Attribute::SeriesNumber);
        return std::make_tuple(number.empty(), std::strtol(number.c_str(), nullptr, 10),
            place.text(Attribute::SeriesDate) + place.text(Attribute::SeriesTime), place.uid(),
            &place != &series, series.uid());
    };
    noteMissing(DicomCompleteness::missingFromStudy(group.files, static_cast<int>(children.size())),
        *study);
    appendSorted(children, key, *study);
    return study;
}

EntryHandle makePatient(const std::string &uid, const PatientFiles &group)
{
    EntryHandle patient(new DicomDirectoryEntry(DicomDirectoryEntry::Patient, uid));
    copyTexts(group.files, patientAttributes, *patient);
    std::vector<EntryHandle> children;
    for (const auto &[studyUid, study] : group.studies) {
        children.push_back(makeStudy(studyUid, study));
    }
    const auto key = [](const DicomDirectoryEntry &study) {
        return std::make_tuple(
            study.text(Attribute::StudyDate), study.text(Attribute::StudyTime), study.uid());
    };
    appendSorted(children, key, *patient);
    return patient;
}

/// Which files to use and, under the file used instead, which to leave out.
struct Selection
{
    Headers used;
    std::map<McFilename, std::vector<std::string>> duplicates;
};

Selection withoutDuplicates(const Headers &headers)
{
    Headers ordered = headers;
    // Of two files with the same image the intact one is wanted.
    std::stable_partition(ordered.begin(), ordered.end(),
        [](const DicomFileHeader *header) { return !header->isCutShort; });
    Selection selection;
    selection.used.reserve(ordered.size());
    std::unordered_map<std::string_view, const DicomFileHeader *> known;
    known.reserve(ordered.size());
    for (const DicomFileHeader *const header : ordered) {
        const auto [first, isNew] = known.emplace(header->sopInstanceUid, header);
        if (isNew || header->sopInstanceUid.empty()) {
            selection.used.push_back(header);
        } else {
            selection.duplicates[first->second->file].push_back(header->file.filename().string());
        }
    }
    return selection;
}

void remarkOnDuplicates(const Selection &selection, DicomDirectoryEntry &series)
{
    std::vector<std::string> names;
    for (const McFilename &file : series.files()) {
        const auto found = selection.duplicates.find(file);
        if (found != selection.duplicates.end()) {
            names.insert(names.end(), found->second.begin(), found->second.end());
        }
    }
    if (!names.empty()) {
        series.addRemark(
            "Files that repeat images of this series are left out: " + joinedText(names) + ".");
    }
}

} // namespace

McDArray<EntryHandle> buildDirectory(const Headers &headers)
{
    const Selection selection = withoutDuplicates(headers);
    Groups groups = grouped(selection.used);
    makeAllSeries(groups);
    std::vector<EntryHandle> patients;
    for (const auto &[uid, group] : groups) {
        patients.push_back(makePatient(uid, group));
    }
    std::sort(patients.begin(), patients.end(), [](const auto &a, const auto &b) {
        return std::make_tuple(a->patientName(), a->patientId(), a->uid())
            < std::make_tuple(b->patientName(), b->patientId(), b->uid());
    });
    McDArray<EntryHandle> result;
    for (const EntryHandle &patient : patients) {
        for (const EntryHandle &study : patient->children()) {
            for (const EntryHandle &series : study->children()) {
                remarkOnDuplicates(selection, *series);
            }
        }
        result.append(patient);
    }
    return result;
}
