#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McHandle.h"

#include <QImage>
#include <QObject>

#include <stop_token>
#include <thread>
#include <vector>

/// Makes small pictures of series, one after the other in a thread of its own: the slice in the
/// middle, in its first window. GUI thread only.
class ThumbnailMaker final : public QObject
{
    Q_OBJECT

public:
    using Entry = Zel::DicomDirectoryEntry;

    explicit ThumbnailMaker(QObject *parent = nullptr);
    /// Gives up and waits for the thread.
    ~ThumbnailMaker() override;

    /// Starts with these; what was being made is given up.
    /// @param pixels length of a picture's longer side, in device pixels.
    void start(const std::vector<McHandle<Entry>> &entries, int pixels);
    void stop();
    [[nodiscard]] bool isRunning() const { return m_isRunning; }

Q_SIGNALS:
    void made(const QString &uid, const QImage &picture);
    void finished();

private:
    void work(
        const std::vector<McHandle<Entry>> &entries, int pixels, const std::stop_token &stopToken);

    std::jthread m_thread;
    bool m_isRunning = false;
    /// What a thread that was given up has still sent is of no interest.
    int m_run = 0;
};
