#include "platform/render/KxRenderQueue.h"

#include "platform/render/KxRenderer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace {

constexpr auto frameEvent = static_cast<QEvent::Type>(QEvent::User + 2);

} // namespace

KxRenderQueue::KxRenderQueue() = default;

void KxRenderQueue::request(KxRenderer *renderer)
{
    if (renderer == nullptr || isRequested(renderer)) {
        return;
    }
    m_waiting.push_back(renderer);
    schedule();
}

void KxRenderQueue::removeRequests(KxRenderer *renderer)
{
    std::erase(m_waiting, renderer);
    // A turn may be walking over this list: its length must stay.
    std::replace(m_turn.begin(), m_turn.end(), renderer, static_cast<KxRenderer *>(nullptr));
    if (m_preferred == renderer) {
        m_preferred = nullptr;
    }
}

bool KxRenderQueue::isRequested(const KxRenderer *renderer) const
{
    return std::find(m_waiting.begin(), m_waiting.end(), renderer) != m_waiting.end();
}

int KxRenderQueue::numRequests() const
{
    return static_cast<int>(m_waiting.size());
}

void KxRenderQueue::setPreferredRenderer(KxRenderer *renderer)
{
    m_preferred = renderer;
}

void KxRenderQueue::flush()
{
    if (!m_turn.empty()) {
        return; // A renderer that runs an event loop of its own: no turn within the turn.
    }
    m_turn.swap(m_waiting);
    const auto preferred = std::find(m_turn.begin(), m_turn.end(), m_preferred);
    if (m_preferred != nullptr && preferred != m_turn.end()) {
        std::rotate(m_turn.begin(), preferred, preferred + 1);
    }
    drawTurn();
    Q_EMIT turnFinished();
}

void KxRenderQueue::drawTurn()
{
    // Ends the turn also when a renderer throws: the frames after it are drawn in the next one.
    const auto endTurn = qScopeGuard([this] {
        for (KxRenderer *renderer : std::exchange(m_turn, {})) {
            request(renderer);
        }
        if (!m_waiting.empty()) {
            schedule();
        }
    });
    for (std::size_t i = 0; i < m_turn.size(); ++i) {
        if (KxRenderer *renderer = std::exchange(m_turn[i], nullptr)) {
            renderer->renderFrame();
        }
    }
}

void KxRenderQueue::customEvent(QEvent *event)
{
    if (event->type() == frameEvent) {
        m_scheduled = false;
        flush();
    }
}

void KxRenderQueue::schedule()
{
    if (!m_scheduled) {
        m_scheduled = true;
        // Low priority: input that is already waiting is handled first, so that a fast wheel turn
        // is drawn once.
        QCoreApplication::postEvent(this, new QEvent(frameEvent), Qt::LowEventPriority);
    }
}
