#include "client/loading/EntryTexts.h"

#include "platform/dicom/ExDicomUtilities.h"

#include <QCoreApplication>
#include <QStringList>

namespace EntryTexts {

namespace {

using Zel::DicomDirectoryEntry;
using Attribute = DicomDirectoryEntry::Attribute;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(EntryTexts)
};

QString text(const DicomDirectoryEntry &entry, Attribute attribute)
{
    return QString::fromStdString(entry.text(attribute)).trimmed();
}

QString date(const DicomDirectoryEntry &entry, Attribute attribute)
{
    return QString::fromStdString(ExDicomUtilities::displayDate(entry.text(attribute)));
}

QString patientName(const DicomDirectoryEntry &entry)
{
    const QString name
        = QString::fromStdString(ExDicomUtilities::displayName(entry.patientName())).trimmed();
    return name.isEmpty() ? Texts::tr("(no name)") : name;
}

QString joined(QStringList parts, const QString &separator)
{
    parts.removeAll(QString());
    return parts.join(separator);
}

QString seriesTitle(const DicomDirectoryEntry &entry)
{
    const QString name
        = joined({text(entry, Attribute::SeriesNumber), text(entry, Attribute::SeriesDescription)},
            QStringLiteral(": "));
    const QString shown = joined({text(entry, Attribute::Modality), name}, QStringLiteral(" "));
    return shown.isEmpty() ? Texts::tr("(series without a name)") : shown;
}

QString volumeTitle(const DicomDirectoryEntry &entry)
{
    const auto &size = entry.dimensions();
    return Texts::tr("%1 × %2, %3 slices").arg(size[0]).arg(size[1]).arg(size[2]);
}

QString studyTitle(const DicomDirectoryEntry &entry)
{
    const QString title
        = joined({date(entry, Attribute::StudyDate), text(entry, Attribute::StudyDescription)},
            QStringLiteral("  "));
    return title.isEmpty() ? Texts::tr("(study without date)") : title;
}

} // namespace

SeriesInfo seriesInfo(const DicomDirectoryEntry &entry)
{
    SeriesInfo info;
    info.patientName = patientName(entry);
    info.patientId = text(entry, Attribute::PatientId);
    info.patientBirthDate = date(entry, Attribute::PatientBirthDate);
    info.studyDate = date(entry, Attribute::StudyDate);
    info.studyDescription = text(entry, Attribute::StudyDescription);
    info.seriesNumber = text(entry, Attribute::SeriesNumber);
    info.seriesDescription = text(entry, Attribute::SeriesDescription);
    info.modality = text(entry, Attribute::Modality);
    info.frameOfReference = entry.text(Attribute::FrameOfReferenceUid);
    return info;
}

QString title(const DicomDirectoryEntry &entry)
{
    switch (entry.level()) {
    case DicomDirectoryEntry::Patient:
        return joined(
            {patientName(entry), text(entry, Attribute::PatientId)}, QStringLiteral("  "));
    case DicomDirectoryEntry::Study:
        return studyTitle(entry);
    case DicomDirectoryEntry::Series:
        return seriesTitle(entry);
    case DicomDirectoryEntry::StoredVolume:
        break;
    }
    return volumeTitle(entry);
}

QString details(const DicomDirectoryEntry &entry)
{
    QStringList lines{title(entry)};
    if (entry.numImages() > 0) {
        lines += Texts::tr("%1 images").arg(entry.numImages());
    }
    QStringList phases;
    for (const std::string &phase : entry.phases()) {
        phases += QString::fromStdString(phase);
    }
    if (phases.size() > 1) {
        lines
            += Texts::tr("%1 phases: %2").arg(phases.size()).arg(phases.join(QStringLiteral(", ")));
    }
    for (const std::string &remark : entry.remarks()) {
        lines += QString::fromStdString(remark);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace EntryTexts
