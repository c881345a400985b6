#include "client/overlay/OverlayPainter.h"

#include "client/overlay/OverlayColors.h"
#include "client/overlay/ScaleBar.h"
#include "client/overlay/ShapePainter.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

constexpr int border = 8;
constexpr int badgeSize = 24;
/// Viewers lower than this show only the most important lines in their corners.
constexpr int lowViewer = 260;
constexpr int linesInLowViewer = 2;
/// Viewers narrower or lower than this show no letters and no scale bar.
constexpr int tinyViewer = 140;

QPen cosmeticPen(const QColor &color, qreal width)
{
    QPen pen(color, width);
    pen.setCapStyle(Qt::FlatCap);
    return pen;
}

void strokeWithHalo(QPainter &painter, const QPainterPath &path, const QColor &color, qreal width)
{
    painter.setBrush(Qt::NoBrush);
    painter.strokePath(path, QPen(QColor(0, 0, 0, 200), width + 2));
    painter.strokePath(path, QPen(color, width));
}

} // namespace

QRect OverlayPainter::badgeRect(const QSize &size)
{
    return {size.width() - border - badgeSize, border, badgeSize, badgeSize};
}

void OverlayPainter::paint(
    QPainter &painter, const QSize &size, const OverlayContent &content, const QRect &covered)
{
    m_covered = covered;
    paintLines(painter, content);
    ShapePainter(painter, m_text, size).paint(content.shapes, covered);
    paintTexts(painter, size, content);
    paintBadge(painter, size, content.link);
    paintProgress(painter, size, content.progress);
    paintMessage(painter, size, content.message);
    paintFrame(painter, size, content);
}

void OverlayPainter::paintLines(QPainter &painter, const OverlayContent &content) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (const OverlayContent::Line &each : content.referenceLines) {
        painter.setPen(cosmeticPen(QColor(0, 0, 0, 160), 3));
        painter.drawLine(each.line);
        painter.setPen(cosmeticPen(each.color, 1));
        painter.drawLine(each.line);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void OverlayPainter::paintTexts(QPainter &painter, const QSize &size, const OverlayContent &content)
{
    for (const auto corner : {OverlayContent::TopLeft, OverlayContent::TopRight,
             OverlayContent::BottomLeft, OverlayContent::BottomRight}) {
        paintCorner(painter, size, content, corner);
    }
    if (std::min(size.width(), size.height()) < tinyViewer) {
        return;
    }
    paintLetters(painter, size, content);
    if (content.mmPerPixel > 0) {
        paintScaleBar(painter, size, content.mmPerPixel);
    }
}

void OverlayPainter::paintCorner(QPainter &painter, const QSize &size,
    const OverlayContent &content, OverlayContent::Corner corner)
{
    const bool isTop = corner == OverlayContent::TopLeft || corner == OverlayContent::TopRight;
    const bool isLeft = corner == OverlayContent::TopLeft || corner == OverlayContent::BottomLeft;
    const bool isBesideBadge
        = corner == OverlayContent::TopRight && content.link != OverlayContent::Link::None;
    const int inset = isBesideBadge ? 2 * border + badgeSize : border + 2;
    const Qt::Alignment alignment
        = (isTop ? Qt::AlignTop : Qt::AlignBottom) | (isLeft ? Qt::AlignLeft : Qt::AlignRight);
    QStringList lines = content.corners[corner];
    if (size.height() < lowViewer && lines.size() > linesInLowViewer) {
        lines.resize(linesInLowViewer);
    }
    const qsizetype numTexts = lines.size();
    lines += corner == OverlayContent::BottomRight ? content.warnings : QStringList();
    const int height = HaloText::lineHeight(painter.font());
    const QFontMetrics metrics(painter.font());
    const int room = std::max(size.width() / 2 - inset - border, badgeSize);
    const bool isUnderBar = corner == OverlayContent::BottomRight && !m_covered.isNull();
    const int bottom = isUnderBar ? m_covered.top() : size.height();
    QPointF anchor(isLeft ? inset : size.width() - inset, isTop ? border : bottom - border);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        m_text.draw(painter, anchor, alignment, metrics.elidedText(lines[i], Qt::ElideRight, room),
            painter.font(), i < numTexts ? OverlayColors::text() : OverlayColors::warning());
        anchor.ry() += isTop ? height : -height;
    }
}

void OverlayPainter::paintLetters(
    QPainter &painter, const QSize &size, const OverlayContent &content)
{
    QFont font = painter.font();
    font.setBold(true);
    const qreal middleX = size.width() / 2.0;
    const qreal middleY = size.height() / 2.0;
    const bool isCovered = !m_covered.isNull() && m_covered.left() < middleX + badgeSize;
    const qreal bottom = isCovered ? m_covered.top() : size.height();
    const qreal aboveScaleBar
        = bottom - border - (isCovered ? 0.0 : 2.0 * HaloText::lineHeight(font));
    struct Place
    {
        OverlayContent::Edge edge = OverlayContent::Left;
        QPointF anchor;
        Qt::Alignment alignment;
    };
    const std::array<Place, 4> places{{
        {OverlayContent::Left, {border + 2.0, middleY}, Qt::AlignLeft | Qt::AlignVCenter},
        {OverlayContent::Right, {size.width() - border - 2.0, middleY},
            Qt::AlignRight | Qt::AlignVCenter},
        {OverlayContent::Top, {middleX, border}, Qt::AlignHCenter | Qt::AlignTop},
        {OverlayContent::Bottom, {middleX, aboveScaleBar}, Qt::AlignHCenter | Qt::AlignBottom},
    }};
    for (const Place &place : places) {
        m_text.draw(painter, place.anchor, place.alignment, content.letters[place.edge], font,
            OverlayColors::text());
    }
}

void OverlayPainter::paintScaleBar(QPainter &painter, const QSize &size, double mmPerPixel)
{
    const ScaleBar bar = ScaleBar::fitting(size.width() / 4.0 * mmPerPixel);
    const qreal half = bar.millimetres / mmPerPixel / 2;
    const qreal beforeBar = m_covered.isNull() ? size.width() : m_covered.left() - border - half;
    const qreal middle = std::min(size.width() / 2.0, beforeBar);
    const qreal y = size.height() - border - 3;
    constexpr qreal tick = 3;
    QPainterPath path(QPointF(middle - half, y - tick));
    path.lineTo(middle - half, y + tick);
    path.moveTo(middle - half, y);
    path.lineTo(middle + half, y);
    path.moveTo(middle + half, y - tick);
    path.lineTo(middle + half, y + tick);
    strokeWithHalo(painter, path, OverlayColors::text(), 1);
    m_text.draw(painter, {middle, y - tick}, Qt::AlignHCenter | Qt::AlignBottom, bar.label,
        painter.font(), OverlayColors::text());
}

void OverlayPainter::paintBadge(
    QPainter &painter, const QSize &size, OverlayContent::Link link) const
{
    if (link == OverlayContent::Link::None) {
        return;
    }
    const QRectF badge = badgeRect(size);
    const bool isAttached = link == OverlayContent::Link::Attached;
    // Two links of a chain: joined, or apart.
    const qreal gap = isAttached ? -3 : 2;
    const QSizeF ring(9, 7);
    const QPointF middle = badge.center();
    QPainterPath path;
    path.addRoundedRect(
        QRectF(QPointF(middle.x() - gap / 2 - ring.width(), middle.y() - ring.height() / 2), ring),
        3, 3);
    path.addRoundedRect(
        QRectF(QPointF(middle.x() + gap / 2, middle.y() - ring.height() / 2), ring), 3, 3);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(27, 29, 33, 190));
    painter.drawRoundedRect(badge, 4, 4);
    strokeWithHalo(
        painter, path, isAttached ? OverlayColors::accent() : OverlayColors::warning(), 1.6);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void OverlayPainter::paintFrame(
    QPainter &painter, const QSize &size, const OverlayContent &content) const
{
    painter.setBrush(Qt::NoBrush);
    const QRectF whole(0.5, 0.5, size.width() - 1, size.height() - 1);
    painter.setPen(QPen(content.isActive ? OverlayColors::accent() : OverlayColors::hairline(), 1));
    painter.drawRect(whole);
    if (content.isActive) {
        painter.drawRect(whole.adjusted(1, 1, -1, -1));
    }
    if (content.planeColor.isValid()) {
        painter.setPen(QPen(content.planeColor, 1));
        painter.drawRect(whole.adjusted(3, 3, -3, -3));
    }
}

void OverlayPainter::paintProgress(QPainter &painter, const QSize &size, double progress) const
{
    if (progress >= 1) {
        return;
    }
    constexpr int barHeight = 3;
    const QRect track(4, size.height() - 4 - barHeight, size.width() - 8, barHeight);
    painter.fillRect(track, OverlayColors::hairline());
    painter.fillRect(QRectF(track.topLeft(), QSizeF(track.width() * progress, barHeight)),
        OverlayColors::accent());
}

void OverlayPainter::paintMessage(QPainter &painter, const QSize &size, const QString &message)
{
    if (message.isEmpty()) {
        return;
    }
    painter.setPen(OverlayColors::text());
    const int sideways = std::max(24, size.width() / 8);
    painter.drawText(QRect(QPoint(), size).adjusted(sideways, 24, -sideways, -24),
        Qt::AlignCenter | Qt::TextWordWrap, message);
}
