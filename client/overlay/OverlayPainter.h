#pragma once

#include "client/overlay/HaloText.h"
#include "client/overlay/OverlayContent.h"

#include <QRect>
#include <QSize>

#include <optional>

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
    /// A line of text and where it goes.
    struct Text;
    /// The scale bar and where it goes.
    struct PlacedBar;

    [[nodiscard]] QVector<Text> placeTexts(
        const QFont &font, const QSize &size, const OverlayContent &content) const;
    [[nodiscard]] QVector<Text> placeCorner(const QFont &font, const QSize &size,
        const OverlayContent &content, OverlayContent::Corner corner) const;
    [[nodiscard]] QVector<Text> placeLetters(
        const QFont &font, const QSize &size, const OverlayContent &content) const;
    /// Nothing where there is no room for it beside the texts.
    [[nodiscard]] std::optional<PlacedBar> placeScaleBar(const QFont &font, const QSize &size,
        double mmPerPixel, const QVector<QRectF> &texts) const;
    void paintScaleBar(QPainter &painter, const PlacedBar &bar);
    void paintBadge(QPainter &painter, const QSize &size, OverlayContent::Link link) const;
    void paintFrame(QPainter &painter, const QSize &size, const OverlayContent &content) const;
    void paintProgress(QPainter &painter, const QSize &size, double progress) const;
    void paintMessage(QPainter &painter, const QSize &size, const QString &message);

    HaloText m_text;
    QRect m_covered;
};
