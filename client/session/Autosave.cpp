#include "client/session/Autosave.h"

#include "client/app/NotificationWatch.h"
#include "client/session/SessionFile.h"
#include "client/session/SessionState.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/util/McGuard.h"
#include "platform/util/McLogFile.h"

#include <QFile>

#include <algorithm>
#include <utility>

namespace {

constexpr int defaultSeconds = 30;
/// What comes in quick succession is saved together.
constexpr int settleMilliseconds = 1000;

const std::vector<ExNotification::Type> changes{ExNotification::ACTIVE_VIEWER_CHANGED,
    ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::VIEWER_SUBTYPE_CHANGED,
    ExNotification::VIEWER_LAYOUT_CHANGED, ExNotification::FULLSCREEN_CHANGED,
    ExNotification::TIMESERIES_CHANGED, ExNotification::COLORMAP_CHANGED,
    ExNotification::VIEWER_FLIPPED, ExNotification::SLICE_CHANGED, ExNotification::ZOOM_CHANGED,
    ExNotification::DATA_WINDOW_CHANGED, ExNotification::PERSPECTIVE_CHANGED,
    ExNotification::VIEWER_ATTACHED_TO_GROUP, ExNotification::VIEWER_DETACHED_FROM_GROUP,
    ExNotification::VIEWER_GROUP_ENABLED, ExNotification::VIEWER_GROUP_DISABLED};

int intervalMilliseconds()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    const auto &seconds
        = pool.property("Session.AutosaveSeconds", defaultSeconds, pool.registrySerializer());
    return std::max(seconds.value(), 0) * 1000;
}

} // namespace

Autosave::Autosave(std::unique_ptr<AutosaveSlot> slot, Take take)
    : m_slot(std::move(slot))
    , m_take(std::move(take))
    , m_watch(new NotificationWatch(
          changes, [this](const ExNotification & /*notification*/) { changed(); }))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &Autosave::save);
    m_writer.setMaxThreadCount(1);
}

Autosave::~Autosave()
{
    m_writer.waitForDone();
    if (m_slot) {
        m_slot->clear();
    }
}

void Autosave::setSlot(std::unique_ptr<AutosaveSlot> slot)
{
    m_writer.waitForDone();
    if (m_slot) {
        m_slot->clear();
    }
    m_slot = std::move(slot);
    m_saved.clear();
    changed();
}

void Autosave::changed()
{
    const int interval = intervalMilliseconds();
    if (!m_slot || interval == 0 || m_timer.isActive()) {
        return; // What follows until the timer ends is saved with it.
    }
    const qint64 rest = m_sinceSave.isValid() ? interval - m_sinceSave.elapsed() : 0;
    m_timer.start(static_cast<int>(std::max<qint64>(rest, settleMilliseconds)));
}

void Autosave::save()
{
    const std::optional<ExSessionData> session = m_take();
    if (!session) {
        return;
    }
    m_sinceSave.start();
    const bool isEmpty = SessionState::isEmpty(*session);
    const QByteArray bytes = isEmpty ? QByteArray() : SessionFile::toBytes(*session);
    if (bytes != m_saved) {
        m_saved = bytes;
        write(bytes);
    }
}

void Autosave::write(const QByteArray &bytes)
{
    m_writer.start([this, bytes, file = m_slot->file()] {
        QString problem;
        const std::string thrown = McGuard::run([&] {
            if (bytes.isEmpty()) {
                QFile::remove(file);
            } else {
                problem = SessionFile::write(file, bytes);
            }
        });
        problem += QString::fromStdString(thrown);
        QMetaObject::invokeMethod(
            this, [this, problem] { written(problem); }, Qt::QueuedConnection);
    });
}

void Autosave::written(const QString &problem)
{
    const bool hadFailed = std::exchange(m_hasFailed, !problem.isEmpty());
    if (!m_hasFailed) {
        return;
    }
    m_saved.clear(); // The next change tries again, whatever it is.
    theLogInstance().warnf("Autosave: %s\n", problem.toUtf8().constData());
    if (!hadFailed) {
        Q_EMIT failed(problem);
    }
}
