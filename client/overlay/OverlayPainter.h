#pragma once

#include "client/overlay/HaloText.h"
#include "client/overlay/OverlayContent.h"

#include <QRect>
#include <QSize>

class QPainter;

/// Draws what lies over a viewer's image: texts, letters, lines, scale bar, frame, marks. One for
/// each render widget. GUI thread only.
class OverlayPainter
{
public:
    /// Where the link badge is in a viewer of this size, also when it shows none.
    [[nodiscard]] static QRect badgeRect(const QSize &size);

    /// @param covered what floats over the picture in its bottom right corner, so that texts and
    /// labels keep clear of it; a null rectangle for nothing.
    void paint(QPainter &painter, const QSize &size, const OverlayContent &content,
        const QRect &covered = {});

private:
    void paintLines(QPainter &painter, const OverlayContent &content) const;
    void paintTexts(QPainter &painter, const QSize &size, const OverlayContent &content);
    void paintCorner(QPainter &painter, const QSize &size, const OverlayContent &content,
        OverlayContent::Corner corner);
    void paintLetters(QPainter &painter, const QSize &size, const OverlayContent &content);
    void paintScaleBar(QPainter &painter, const QSize &size, double mmPerPixel);
    void paintBadge(QPainter &painter, const QSize &size, OverlayContent::Link link) const;
    void paintFrame(QPainter &painter, const QSize &size, const OverlayContent &content) const;
    void paintProgress(QPainter &painter, const QSize &size, double progress) const;
    void paintMessage(QPainter &painter, const QSize &size, const QString &message);

    HaloText m_text;
    QRect m_covered;
};
