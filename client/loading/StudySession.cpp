#include "client/loading/StudySession.h"

#include "client/loading/EntryTexts.h"
#include "client/loading/SeriesLoad.h"
#include "client/viewers/WorkstationViewer.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "framework/notification/ExNotifiable.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

/// Calls @p visit for an entry and everything below it.
template <typename Visit>
void walk(const McHandle<Zel::DicomDirectoryEntry> &entry, const Visit &visit)
{
    visit(entry);
    for (const auto &child : entry->children()) {
        walk(child, visit);
    }
}

/// All series with images, in the order of the directory.
std::vector<McHandle<Zel::DicomDirectoryEntry>> imagesIn(const DicomScanner::Result &result)
{
    std::vector<McHandle<Zel::DicomDirectoryEntry>> found;
    for (const auto &patient : result.patients) {
        walk(patient, [&found](const McHandle<Zel::DicomDirectoryEntry> &each) {
            if (each->isSeries() && each->isImage()) {
                found.push_back(each);
            }
        });
    }
    return found;
}

/// Voxels of the largest volume of a series, one phase of it. Single images come after all stacks.
std::pair<bool, double> largestVolume(const Zel::DicomDirectoryEntry &series)
{
    std::pair<bool, double> largest;
    for (const auto &volume : series.children()) {
        const auto &size = volume->dimensions();
        largest = std::max(largest, {size[2] > 1, 1.0 * size[0] * size[1] * size[2]});
    }
    return largest;
}

} // namespace

StudySession::StudySession(QObject *parent)
    : QObject(parent)
{
    connect(&m_scanner, &DicomScanner::progressChanged, this, [this](int done, int total) {
        Q_EMIT progressChanged(done, std::max(total, 0), tr("Looking for DICOM files"));
    });
    connect(&m_scanner, &DicomScanner::finished, this, &StudySession::scanEnded);
}

StudySession::~StudySession()
{
    // Their threads end before what they were reading for goes.
    qDeleteAll(m_loads);
}

void StudySession::open(const QStringList &paths)
{
    giveUpScan();
    McDArray<McFilename> files;
    m_scannedPaths.clear();
    for (const QString &path : paths) {
        files.append(McFilename(path.toStdString()));
        m_scannedPaths += QFileInfo(path).absoluteFilePath();
    }
    m_scanner.start(files);
    m_isScanWanted = true;
    m_isScanKeptBack = false;
    tellBusy();
}

StudySession::Pause::Pause(StudySession &session)
    : m_session(&session)
{
    ++session.m_numPauses;
}

StudySession::Pause::~Pause()
{
    if (m_session == nullptr || --m_session->m_numPauses > 0) {
        return;
    }
    const auto goOn = [session = m_session.data()] {
        if (session->m_isScanKeptBack) {
            session->scanEnded();
        }
    };
    QMetaObject::invokeMethod(m_session, goOn, Qt::QueuedConnection);
}

void StudySession::scanEnded()
{
    m_isScanKeptBack = m_numPauses > 0;
    if (m_isScanKeptBack) {
        return;
    }
    const DicomScanner::Result &result = m_scanner.result();
    tellBusy(); // Before anybody asks the user something.
    if (std::exchange(m_isScanWanted, false)) {
        if (imagesIn(result).empty() && !imageSeries().empty()) {
            tellProgress();
            Q_EMIT nothingFound(result);
        } else {
            clear();
            m_found = result;
            m_paths = m_scannedPaths;
            Q_EMIT scanned();
        }
    }
    tellBusy();
}

void StudySession::cancel()
{
    if (isScanning()) {
        m_scanner.cancel();
        return;
    }
    const auto loads = m_loads;
    for (SeriesLoad *load : loads) {
        load->cancel();
    }
}

void StudySession::close()
{
    giveUpScan();
    clear();
    tellBusy();
}

void StudySession::giveUpScan()
{
    if (std::exchange(m_isScanWanted, false)) {
        m_scanner.cancel();
        Q_EMIT scanGivenUp();
    }
}

void StudySession::clear()
{
    qDeleteAll(m_loads);
    m_loads.clear();
    for (WorkstationViewer *viewer : WorkstationViewerManager::all()) {
        empty(*viewer);
    }
    m_series.clear();
    m_found = {};
    m_paths.clear();
    Q_EMIT closed();
}

void StudySession::empty(WorkstationViewer &viewer)
{
    if (viewer.volume(0) != nullptr) {
        ExNotifiable::notify({ExNotification::ABOUT_TO_DELETE_VOLUME, &viewer});
    }
    viewer.setSeries(nullptr);
}

void StudySession::unload(const std::string &uid)
{
    const auto found = m_series.find(uid);
    if (found == m_series.end()) {
        return;
    }
    const McHandle<LoadedSeries> series = found->second;
    m_series.erase(found);
    const auto load = std::find_if(m_loads.begin(), m_loads.end(),
        [&series](const SeriesLoad *each) { return &each->series() == series.get(); });
    if (load != m_loads.end()) {
        delete *load;
        m_loads.erase(load);
    }
    for (WorkstationViewer *viewer : WorkstationViewerManager::all()) {
        if (viewer->series() == series.get()) {
            empty(*viewer);
        }
    }
    tellBusy();
}

McHandle<StudySession::Entry> StudySession::entry(const std::string &uid) const
{
    McHandle<Entry> found;
    for (const McHandle<Entry> &patient : m_found.patients) {
        walk(patient, [&](const McHandle<Entry> &each) {
            const bool canLoad = each->isSeries() || each->isStoredVolume();
            if (!found && canLoad && each->uid() == uid) {
                found = each;
            }
        });
    }
    return found;
}

std::vector<McHandle<StudySession::Entry>> StudySession::imageSeries() const
{
    return imagesIn(m_found);
}

McHandle<StudySession::Entry> StudySession::largestSeries() const
{
    McHandle<Entry> largest;
    for (const McHandle<Entry> &each : imageSeries()) {
        if (!largest || largestVolume(*each) > largestVolume(*largest)) {
            largest = each;
        }
    }
    return largest;
}

void StudySession::show(const McHandle<Entry> &entry, WorkstationViewer &viewer)
{
    viewer.setSeries(load(entry));
}

bool StudySession::isLoaded(const std::string &uid) const
{
    return m_series.count(uid) > 0;
}

McHandle<LoadedSeries> StudySession::loaded(const std::string &uid) const
{
    const auto found = m_series.find(uid);
    return found != m_series.end() ? found->second : McHandle<LoadedSeries>();
}

McHandle<LoadedSeries> StudySession::load(const McHandle<Entry> &entry)
{
    McHandle<LoadedSeries> &series = m_series[entry->uid()];
    if (!series) {
        series = new LoadedSeries(entry->uid(), EntryTexts::seriesInfo(*entry));
        startLoad(*new SeriesLoad(series, entry, this));
    }
    return series;
}

void StudySession::startLoad(SeriesLoad &load)
{
    m_loads.push_back(&load);
    connect(&load, &SeriesLoad::changed, this, [this, &load] { loadChanged(load.series()); });
    connect(&load, &SeriesLoad::ended, this, [this, &load] { loadEnded(load); });
    ExNotifiable::notify(ExNotification::ABOUT_TO_LOAD_VOLUME);
    load.start();
    tellBusy();
}

void StudySession::loadChanged(LoadedSeries &series)
{
    for (WorkstationViewer *viewer : WorkstationViewerManager::all()) {
        if (viewer->series() == &series) {
            viewer->seriesChanged();
        }
    }
    tellProgress();
}

void StudySession::loadEnded(SeriesLoad &load)
{
    std::erase(m_loads, &load);
    for (WorkstationViewer *viewer : WorkstationViewerManager::all()) {
        if (viewer->series() == &load.series() && viewer->volume(0) != nullptr) {
            ExNotifiable::notify({ExNotification::VOLUME_LOADED, viewer});
        }
    }
    load.deleteLater();
    if (m_loads.empty()) {
        ExNotifiable::notify(ExNotification::VOLUMES_LOADED_INTO_SYSTEM);
    }
    tellBusy();
}

void StudySession::tellProgress()
{
    double done = 0;
    for (const SeriesLoad *load : m_loads) {
        done += load->series().progress();
    }
    constexpr int percent = 100;
    if (!m_loads.empty() && !isScanning()) {
        Q_EMIT progressChanged(static_cast<int>(done * percent),
            static_cast<int>(m_loads.size()) * percent, tr("Reading series"));
    }
}

void StudySession::tellBusy()
{
    if (isBusy() != m_wasBusy) {
        m_wasBusy = !m_wasBusy;
        Q_EMIT busyChanged(m_wasBusy);
    }
}
