#pragma once

#include "client/viewers/VolumeScene.h"

#include <QImage>
#include <QThread>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>

/// Draws volumes in a thread of its own, so that slices can be scrolled meanwhile. Only the latest
/// wish counts: one that comes while a picture is made gives that up. Owned by a volume viewer.
class VolumeRenderThread final : public QThread
{
    Q_OBJECT

public:
    VolumeRenderThread();
    /// Gives up what is being drawn and waits for the thread.
    ~VolumeRenderThread() override;

    /// Has a thread end by itself, without waiting for what it is drawing; at the latest the end of
    /// the application waits for it. Null is ignored. GUI thread.
    static void retire(std::unique_ptr<VolumeRenderThread> thread);

    /// Asks for a picture; drawn() follows unless another wish comes first. GUI thread.
    void draw(const VolumeScene &scene);
    /// Takes back what was asked for and not yet drawn. GUI thread.
    void clear();

Q_SIGNALS:
    /// @param number that of the scene.
    void drawn(const QImage &picture, int number);
    /// Nothing can be drawn. @param problem why, for the user.
    void failed(const QString &problem);

protected:
    void run() override;

private:
    /// Waits for a wish; nothing when the thread is to end.
    std::optional<VolumeScene> take();
    void end();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::optional<VolumeScene> m_wish;
    std::atomic<bool> m_interrupted{false};
    bool m_isEnding = false;
};
