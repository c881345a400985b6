#include "client/panels/StudyThumbnails.h"

#include "client/loading/StudySession.h"
#include "client/panels/StudyTree.h"
#include "framework/monitors/ExMonitorManager.h"

#include <QEvent>
#include <QScrollBar>

#include <cmath>

namespace {

/// So few at once that what is scrolled to meanwhile comes soon.
constexpr std::size_t batch = 4;

} // namespace

StudyThumbnails::StudyThumbnails(StudyTree &tree, StudySession &session)
    : m_tree(tree)
    , m_session(session)
{
    m_timer.setSingleShot(true);
    const auto wake = [this] { m_timer.start(); };
    connect(&m_timer, &QTimer::timeout, this, &StudyThumbnails::makeNext);
    connect(&m_maker, &ThumbnailMaker::made, this, [this](const QString &uid, const QImage &made) {
        m_tried.remove(uid); // It may go again.
        m_tree.setThumbnail(uid, made);
    });
    connect(&m_maker, &ThumbnailMaker::finished, this, wake);
    connect(tree.verticalScrollBar(), &QAbstractSlider::valueChanged, this, wake);
    connect(tree.verticalScrollBar(), &QAbstractSlider::rangeChanged, this, wake);
    connect(&session, &StudySession::busyChanged, this, wake);
    connect(&session, &StudySession::scanned, this, wake);
    connect(&session, &StudySession::closed, this, &StudyThumbnails::forget);
    tree.installEventFilter(this);
    followWindow();
}

bool StudyThumbnails::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
    case QEvent::Show:
    case QEvent::Resize:
        followWindow();
        [[fallthrough]];
    case QEvent::Move:
        adaptSize();
        m_timer.start();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void StudyThumbnails::followWindow()
{
    QWidget *const window = m_tree.window();
    if (m_window != window && window != &m_tree) {
        if (m_window != nullptr) {
            m_window->removeEventFilter(this);
        }
        m_window = window;
        window->installEventFilter(this);
    }
}

void StudyThumbnails::adaptSize()
{
    const ExMonitorManager &monitors = ExMonitorManager::instance();
    const int side = monitors.imageSeriesThumbnailSize(&m_tree);
    if (side != m_tree.thumbnailSize()) {
        forget();
        m_tree.setThumbnailSize(side);
    }
    const int points = monitors.imageSeriesFontSize(&m_tree);
    QFont font = m_tree.font();
    if (points > 0 && font.pointSize() != points) {
        font.setPointSize(points);
        m_tree.setFont(font);
    }
}

void StudyThumbnails::forget()
{
    m_maker.stop();
    m_tried.clear();
    m_timer.start();
}

void StudyThumbnails::makeNext()
{
    if (m_maker.isRunning() || m_session.isBusy() || !m_tree.isVisible()) {
        return;
    }
    std::vector<McHandle<StudyTree::Entry>> next;
    for (const auto &entry : m_tree.entriesWithoutThumbnail()) {
        const QString uid = QString::fromStdString(entry->uid());
        if (next.size() < batch && !m_tried.contains(uid)) {
            m_tried.insert(uid);
            next.push_back(entry);
        }
    }
    if (!next.empty()) {
        m_maker.start(
            next, static_cast<int>(std::ceil(m_tree.thumbnailSize() * m_tree.devicePixelRatioF())));
    }
}
