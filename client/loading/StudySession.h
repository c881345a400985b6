#pragma once

#include "client/data/LoadedSeries.h"
#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/dicomio/DicomScanner.h"
#include "platform/util/McHandle.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <map>
#include <string>
#include <vector>

class SeriesLoad;
class WorkstationViewer;

/// The studies that are open: finds them, reads their series in the background, and keeps what was
/// read as long as they are open. Tells the viewers that show a series of its progress. GUI thread
/// only.
class StudySession final : public QObject
{
    Q_OBJECT

public:
    using Entry = Zel::DicomDirectoryEntry;

    explicit StudySession(QObject *parent = nullptr);
    /// Ends all reading and waits for its threads.
    ~StudySession() override;

    /// Looks for studies in folders, files or DICOMDIR files. What is open stays until there is
    /// something to show instead of it.
    void open(const QStringList &paths);
    /// As long as one lives, what a scan has found is kept back, and what is open stays: for
    /// questions about it.
    class Pause
    {
    public:
        explicit Pause(StudySession &session);
        ~Pause();
        Q_DISABLE_COPY_MOVE(Pause)

    private:
        QPointer<StudySession> m_session;
    };

    /// Ends the scan, or, when there is none, reading; what has been found and read stays.
    void cancel();
    /// Ends the scan, if there is one, as if it had never begun: what is open stays.
    void giveUpScan();
    /// Takes everything out of the viewers and forgets it.
    void close();

    /// Whether a scan or a series is under way.
    [[nodiscard]] bool isBusy() const { return isScanning() || !m_loads.empty(); }
    [[nodiscard]] bool isScanning() const { return m_scanner.isRunning(); }
    /// What is open, as its scan has found it; empty when nothing is.
    [[nodiscard]] const DicomScanner::Result &found() const { return m_found; }
    /// The folders and files that found() comes from, absolute; empty when nothing is open.
    [[nodiscard]] const QStringList &paths() const { return m_paths; }
    /// The series, or the volume of one, with this identifier; null when it is unknown.
    [[nodiscard]] McHandle<Entry> entry(const std::string &uid) const;
    /// All series with images, in the order of the directory.
    [[nodiscard]] std::vector<McHandle<Entry>> imageSeries() const;
    /// The series with the largest volume, its phases not counted, single images last; null when
    /// there are no images.
    [[nodiscard]] McHandle<Entry> largestSeries() const;

    /// Shows a series, or one of its volumes, in a viewer; reading starts when it has not yet.
    void show(const McHandle<Entry> &entry, WorkstationViewer &viewer);
    /// Takes a series, or the volume of one, out of the viewers and forgets what was read of it; it
    /// stays listed. Unknown identifiers are ignored.
    void unload(const std::string &uid);
    /// Whether the series is, or is being, loaded.
    [[nodiscard]] bool isLoaded(const std::string &uid) const;
    /// The series as far as it has been loaded; null when loading has not begun.
    [[nodiscard]] McHandle<LoadedSeries> loaded(const std::string &uid) const;

Q_SIGNALS:
    void busyChanged(bool busy);
    /// @param done,total files or slices; a total of 0 when it is not known. @param what for the
    /// user.
    void progressChanged(int done, int total, const QString &what);
    /// The scan has ended: found() is there.
    void scanned();
    /// The scan has ended without images; what was open before stays.
    void nothingFound(const DicomScanner::Result &result);
    /// The scan that runs will not be shown: the studies were closed, or others are opened.
    void scanGivenUp();
    /// The studies are no longer open.
    void closed();

private:
    void scanEnded();
    /// Takes everything out of the viewers and forgets it.
    void clear();
    /// Takes what is shown out of these viewers, telling it first.
    static void empty(WorkstationViewer &viewer);
    McHandle<LoadedSeries> load(const McHandle<Entry> &entry);
    void startLoad(SeriesLoad &load);
    void loadChanged(LoadedSeries &series);
    void loadEnded(SeriesLoad &load);
    void tellProgress();
    void tellBusy();

    DicomScanner m_scanner;
    DicomScanner::Result m_found;
    QStringList m_paths;
    QStringList m_scannedPaths;
    std::map<std::string, McHandle<LoadedSeries>> m_series;
    std::vector<SeriesLoad *> m_loads;
    /// What a scan finds after the studies were closed is of no interest.
    bool m_isScanWanted = false;
    int m_numPauses = 0;
    /// A scan has ended in a pause.
    bool m_isScanKeptBack = false;
    bool m_wasBusy = false;
};
