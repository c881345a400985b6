#pragma once

#include <QObject>
#include <QString>

#include <atomic>
#include <thread>

/// Makes the sample study in the user's cache folder, in a thread of its own, unless an earlier run
/// has. GUI thread only.
class SampleMaker final : public QObject
{
    Q_OBJECT

public:
    explicit SampleMaker(QObject *parent = nullptr);
    /// Gives up and waits for the thread.
    ~SampleMaker() override;

    /// Where the study is, or will be.
    [[nodiscard]] static QString folder();
    /// To be called once.
    void start();
    /// finished() follows soon.
    void cancel() { m_isCancelled = true; }

Q_SIGNALS:
    void progressChanged(int percent);
    /// @param problem why there is no study; empty when it is there.
    void finished(const QString &problem);

private:
    void make();

    std::atomic<bool> m_isCancelled{false};
    std::thread m_thread;
};
