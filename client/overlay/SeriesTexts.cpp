#include "client/overlay/SeriesTexts.h"

#include "client/viewers/WorkstationViewer.h"
#include "framework/application/ExApplication.h"
#include "framework/tools/ExDecoration.h"
#include "framework/tools/ExModal.h"
#include "framework/viewers/ExViewerManager.h"

#include <QCoreApplication>

namespace SeriesTexts {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SeriesTexts)
};

QStringList withoutEmpty(QStringList lines)
{
    lines.removeAll(QString());
    return lines;
}

} // namespace

QStringList patient(const WorkstationViewer &viewer)
{
    if (viewer.series() == nullptr) {
        return {};
    }
    const SeriesInfo &info = viewer.series()->info();
    return withoutEmpty({info.patientName, info.patientId,
        info.patientBirthDate.isEmpty() ? QString()
                                        : Texts::tr("born %1").arg(info.patientBirthDate)});
}

QStringList study(const WorkstationViewer &viewer, const QString &view)
{
    if (viewer.series() == nullptr) {
        return {};
    }
    const SeriesInfo &info = viewer.series()->info();
    const QString series
        = QStringList(withoutEmpty({info.seriesNumber, info.seriesDescription})).join(u": ");
    return withoutEmpty(
        {info.modality % QLatin1Char(' ') % view, series, info.studyDescription, info.studyDate});
}

QString phase(const WorkstationViewer &viewer)
{
    if (viewer.numPhases() < 2) {
        return {};
    }
    const QString label = QString::fromStdString(viewer.imageSet(0)->phaseLabel(viewer.phase()));
    return Texts::tr("Phase %1/%2  %3")
        .arg(viewer.phase() + 1)
        .arg(viewer.numPhases())
        .arg(label)
        .trimmed();
}

QString tool(const WorkstationViewer &viewer)
{
    if (!ExViewerManager::isActiveViewer(viewer) || !ExApplication::hasInstance()) {
        return {};
    }
    for (const ExModal *each : viewer.modalTools()) {
        const char *const key = each->decorationKey();
        const ExDecoration *const decoration = ExApplication::instance().decoration(key);
        const bool isChosen = each->stateForUse() == Kx::LeftButton && decoration != nullptr
            && decoration->isKnown(key);
        if (isChosen) {
            return decoration->text(key, true).remove(QLatin1Char('&'));
        }
    }
    return {};
}

QStringList warnings(const WorkstationViewer &viewer)
{
    QStringList lines = viewer.series()->remark().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (!viewer.isFinal()) {
        lines += Texts::tr("preview");
    }
    return lines;
}

QString emptyState(const WorkstationViewer &viewer)
{
    if (viewer.series() == nullptr) {
        return viewer.isSeriesOffered()
            ? Texts::tr("No series. Double-click one in the list, or drag it here.")
            : Texts::tr("No series. Open a folder with File > Open folder, or drop one here.");
    }
    if (viewer.volume(0) == nullptr) {
        return viewer.series()->isComplete() ? viewer.series()->remark()
                                             : Texts::tr("Reading headers…");
    }
    return {};
}

} // namespace SeriesTexts
