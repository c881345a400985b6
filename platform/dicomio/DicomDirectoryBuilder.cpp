#include "platform/dicomio/DicomDirectoryBuilder.h"

#include "platform/dicomio/DicomCompleteness.h"
#include "platform/dicomio/DicomTexts.h"
#include "platform/dicomio/DicomVolumePlan.h"

#include <QByteArray>
#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <tuple>
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

/// Files that belong together at one level, under the text that says so.
using Groups = std::map<std::string, Headers>;

template <typename KeyOf>
Groups grouped(const Headers &headers, KeyOf keyOf)
{
    Groups groups;
    for (const DicomFileHeader *const header : headers) {
        groups[keyOf(*header)].push_back(header);
    }
    return groups;
}

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

/// The patient and study of a file as one text.
std::string studyPlace(const DicomFileHeader &header)
{
    return patientKey(header) + '\n' + header.text(Attribute::StudyUid);
}

/// UIDs of series that stand in several studies: copies that were given to another patient.
using SharedUids = std::set<std::string>;

SharedUids sharedSeries(const Headers &headers)
{
    std::map<std::string, std::string> places;
    SharedUids shared;
    for (const DicomFileHeader *const header : headers) {
        const std::string &uid = header->text(Attribute::SeriesUid);
        const std::string place = studyPlace(*header);
        if (places.emplace(uid, place).first->second != place) {
            shared.insert(uid);
        }
    }
    return shared;
}

/// What tells a series from all others. A file that names no series is one of its own; where a UID
/// is there several times, one patient's images must never be taken for another's.
std::string seriesKey(const DicomFileHeader &header, const SharedUids &shared)
{
    const std::string &uid = header.text(Attribute::SeriesUid);
    if (uid.empty()) {
        return "file:" + header.file.string();
    }
    if (shared.count(uid) == 0) {
        return uid;
    }
    const QByteArray place = QCryptographicHash::hash(
        QByteArray::fromStdString(studyPlace(header)), QCryptographicHash::Sha1);
    constexpr qsizetype digits = 8;
    return uid + '+' + place.toHex().left(digits).toStdString();
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
        references.emplace(file->text(Attribute::SeriesUid), file->referencedSeriesUid);
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

EntryHandle makeStudy(const std::string &uid, const Headers &files, const SharedUids &shared)
{
    EntryHandle study(new DicomDirectoryEntry(DicomDirectoryEntry::Study, uid));
    copyTexts(files, studyAttributes, *study);
    std::vector<EntryHandle> children;
    const auto keyOf
        = [&shared](const DicomFileHeader &header) { return seriesKey(header, shared); };
    for (const auto &[seriesUid, group] : grouped(files, keyOf)) {
        children.push_back(makeSeries(seriesUid, group, files));
    }
    const std::map<std::string, const DicomDirectoryEntry *> described
        = describedSeries(files, children);
    const auto key = [&described](const DicomDirectoryEntry &series) {
        const auto found
            = series.isPresentationState() ? described.find(series.seriesUid()) : described.end();
        const DicomDirectoryEntry &place = found == described.end() ? series : *found->second;
        const std::string &number = place.text(Attribute::SeriesNumber);
        return std::make_tuple(number.empty(), std::strtol(number.c_str(), nullptr, 10),
            place.text(Attribute::SeriesDate) + place.text(Attribute::SeriesTime), place.uid(),
            &place != &series, series.uid());
    };
    noteMissing(
        DicomCompleteness::missingFromStudy(files, static_cast<int>(children.size())), *study);
    appendSorted(children, key, *study);
    return study;
}

EntryHandle makePatient(const std::string &uid, const Headers &files, const SharedUids &shared)
{
    EntryHandle patient(new DicomDirectoryEntry(DicomDirectoryEntry::Patient, uid));
    copyTexts(files, patientAttributes, *patient);
    std::vector<EntryHandle> children;
    const auto studyKey
        = [](const DicomFileHeader &header) { return header.text(Attribute::StudyUid); };
    for (const auto &[studyUid, group] : grouped(files, studyKey)) {
        children.push_back(makeStudy(studyUid, group, shared));
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

Selection withoutDuplicates(const std::vector<DicomFileHeader> &headers)
{
    Headers ordered;
    for (const DicomFileHeader &header : headers) {
        ordered.push_back(&header);
    }
    // Of two files with the same image the intact one is wanted.
    std::stable_partition(ordered.begin(), ordered.end(),
        [](const DicomFileHeader *header) { return !header->isCutShort; });
    Selection selection;
    std::map<std::string, const DicomFileHeader *> known;
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

McDArray<EntryHandle> buildDirectory(const std::vector<DicomFileHeader> &headers)
{
    const Selection selection = withoutDuplicates(headers);
    const SharedUids shared = sharedSeries(selection.used);
    std::vector<EntryHandle> patients;
    for (const auto &[uid, group] : grouped(selection.used, patientKey)) {
        patients.push_back(makePatient(uid, group, shared));
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
