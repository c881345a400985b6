#include "client/viewers/VolumeRenderThread.h"

#include "client/viewers/VolumePicture.h"
#include "platform/util/McGuard.h"

#include <QCoreApplication>

#include <utility>

VolumeRenderThread::VolumeRenderThread()
{
    setObjectName(QStringLiteral("volume rendering"));
}

VolumeRenderThread::~VolumeRenderThread()
{
    end();
    wait();
}

void VolumeRenderThread::end()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
        m_interrupted = true;
    }
    m_wake.notify_one();
}

void VolumeRenderThread::retire(std::unique_ptr<VolumeRenderThread> thread)
{
    if (!thread || !thread->isRunning()) {
        return;
    }
    VolumeRenderThread *const retired = thread.release();
    retired->setParent(QCoreApplication::instance());
    connect(retired, &QThread::finished, retired, &QObject::deleteLater);
    retired->end();
}

void VolumeRenderThread::draw(const VolumeScene &scene)
{
    {
        const std::lock_guard lock(m_mutex);
        m_wish = scene;
        m_interrupted = true;
    }
    m_wake.notify_one();
    if (!isRunning()) {
        start(QThread::LowPriority);
    }
}

void VolumeRenderThread::clear()
{
    const std::lock_guard lock(m_mutex);
    m_wish.reset();
    m_interrupted = true;
}

std::optional<VolumeScene> VolumeRenderThread::take()
{
    std::unique_lock lock(m_mutex);
    m_wake.wait(lock, [this] { return m_isEnding || m_wish.has_value(); });
    if (m_isEnding) {
        return std::nullopt;
    }
    m_interrupted = false;
    return std::exchange(m_wish, std::nullopt);
}

void VolumeRenderThread::run()
{
    std::unique_ptr<VolumePicture> picture;
    while (const std::optional<VolumeScene> scene = take()) {
        QImage image;
        std::string problem = McGuard::run([&] {
            if (!picture) {
                picture = VolumePicture::make();
            }
            if (picture) {
                image = picture->draw(*scene, [this] { return m_interrupted.load(); });
            }
        });
        if (!picture && problem.empty()) {
            problem = VolumePicture::problem();
        }
        if (!problem.empty()) {
            picture.reset(); // In what state it is nobody knows.
            Q_EMIT failed(QString::fromStdString(problem), scene->number);
        } else if (!image.isNull()) {
            Q_EMIT drawn(image, scene->number);
        }
    }
}
