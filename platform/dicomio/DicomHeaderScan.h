#pragma once

#include "platform/dicomio/DicomFileHeader.h"
#include "platform/dicomio/DicomScanner.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

/// Reads the headers of files in several threads; of many files, while the caller still looks for
/// more of them. Owns the headers. Used by one thread, which takes its share of the reading.
class DicomHeaderScan
{
public:
    /// @param progress called from several threads, one at a time.
    DicomHeaderScan(const DicomScanner::Progress &progress, const std::stop_token &stop);
    /// Waits for the other threads.
    ~DicomHeaderScan();
    DicomHeaderScan(const DicomHeaderScan &) = delete;
    DicomHeaderScan &operator=(const DicomHeaderScan &) = delete;

    /// @param file one that was not added before.
    void add(const McFilename &file);
    /// No more files come: returns when all are read or a stop is requested. Throws what has been
    /// thrown in another thread.
    void finish();
    /// After finish(): whether it has read all files.
    [[nodiscard]] bool isComplete() const { return m_read.size() == m_numEntries; }
    /// After finish(): those that were read, folder by folder in the order of their names; with
    /// those of files that cannot be used.
    [[nodiscard]] const std::vector<const DicomFileHeader *> &headers() const { return m_read; }

private:
    struct Entry
    {
        DicomFileHeader header;
        bool isRead = false;
    };

    void startThreads(std::size_t count);
    void work();
    Entry *next();
    void tellListing();
    void tellListed();
    void tellRead();
    void tellDone() const;
    [[nodiscard]] std::vector<const Entry *> sortedEntries() const;

    const DicomScanner::Progress &m_progress;
    const std::stop_token &m_stop;
    std::vector<const DicomFileHeader *> m_read;

    std::mutex m_mutex; ///< of what follows, as long as there are other threads
    std::condition_variable m_hasNews;
    std::vector<std::vector<Entry>> m_slices; ///< of equal size, so that no entry moves
    std::size_t m_numEntries = 0;
    std::size_t m_next = 0;
    bool m_isListed = false;
    std::exception_ptr m_thrown; ///< what has ended one of the threads

    std::mutex m_progressMutex; ///< of what follows
    std::size_t m_numDone = 0;
    std::size_t m_numListed = 0; ///< 0 until all files are

    std::vector<std::jthread> m_threads; // last, so that they have ended when the others go
};
