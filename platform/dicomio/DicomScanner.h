#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/dicomio/MovaraDicomIoExport.h"
#include "platform/util/McDArray.h"
#include "platform/util/McFilename.h"
#include "platform/util/McHandle.h"

#include <QObject>

#include <functional>
#include <memory>
#include <stop_token>
#include <string>

/// Finds DICOM files in folders and sorts them into patients, studies and series. Reads headers
/// only, in threads of its own; lives in one thread (with an event loop) and tells its progress
/// there. Files that cannot be used are collected, they do not end the scan.
class MOVARA_DICOMIO_EXPORT DicomScanner : public QObject
{
    Q_OBJECT

public:
    struct Problem
    {
        McFilename file;
        std::string reason; ///< a plain English sentence
    };
    struct Result
    {
        McDArray<McHandle<Zel::DicomDirectoryEntry>> patients;
        McDArray<Problem> problems;
        int numFiles = 0; ///< files looked at; not those listed after a cancellation
        /// Before all files were looked at: patients and problems are what was found until then.
        bool wasCancelled = false;
        /// Why nothing was found although nothing is wrong with the files, in a plain English
        /// sentence; empty when the scan went as it should.
        std::string failure;
    };
    /// Told from several threads, one at a time: files done and files in all, or -1 as long as
    /// these are still being counted.
    using Progress = std::function<void(int done, int total)>;

    explicit DicomScanner(QObject *parent = nullptr);
    /// Cancels and waits for the threads.
    ~DicomScanner() override;
    Q_DISABLE_COPY_MOVE(DicomScanner)

    /// Scans in the calling thread's time; any thread.
    /// @param paths folders (searched with all their subfolders, hidden files left out), files, or
    /// DICOMDIR files (the files that they list).
    /// What @p progress throws comes out of here, once all threads have ended.
    [[nodiscard]] static Result scanNow(const McDArray<McFilename> &paths,
        const Progress &progress = {}, const std::stop_token &stop = {});

    /// Starts a scan of @p paths as scanNow() takes them; one that is still running is cancelled
    /// and will not report any more.
    void start(const McDArray<McFilename> &paths);
    /// Asks the running scan to end; finished() follows soon.
    void cancel();
    [[nodiscard]] bool isRunning() const;
    /// What the last finished scan has found.
    [[nodiscard]] const Result &result() const;

Q_SIGNALS:
    /// @param total -1 while the files are still being counted.
    void progressChanged(int done, int total);
    /// The scan has ended or was cancelled; result() is there.
    void finished();

private:
    class Private;
    std::unique_ptr<Private> d;
};
