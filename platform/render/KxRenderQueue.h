#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QObject>

#include <vector>

class KxRenderer;

/// Frames waiting to be drawn. Runs from the event loop after the input that is already waiting:
/// every renderer that has asked gets one frame a turn, the preferred one first, the others in
/// order of their requests. A frame requested while a turn runs is drawn in the next turn. Holds
/// plain pointers: a renderer takes its requests out when it goes. GUI thread only.
class MOVARA_PLATFORM_EXPORT KxRenderQueue : public QObject
{
    Q_OBJECT

public:
    KxRenderQueue();

    /// Asks for a frame; a renderer that is already waiting keeps its place. Null is ignored.
    void request(KxRenderer *renderer);
    /// Takes the request of a renderer out, also in the middle of a turn. Unknown and null
    /// renderers are ignored.
    void removeRequests(KxRenderer *renderer);
    [[nodiscard]] bool isRequested(const KxRenderer *renderer) const;
    [[nodiscard]] int numRequests() const;

    /// The renderer that is drawn first in every turn, e.g. the one under the mouse; null for none.
    void setPreferredRenderer(KxRenderer *renderer);
    [[nodiscard]] KxRenderer *preferredRenderer() const { return m_preferred; }

    /// Draws the requested frames now, without waiting for the event loop: one turn.
    void flush();

Q_SIGNALS:
    /// A turn has ended: every renderer that had asked before it began has drawn.
    void turnFinished();

protected:
    void customEvent(QEvent *event) override;

private:
    void drawTurn();
    void schedule();

    std::vector<KxRenderer *> m_waiting;
    std::vector<KxRenderer *> m_turn;
    KxRenderer *m_preferred = nullptr;
    bool m_scheduled = false;
};
