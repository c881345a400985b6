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
/// Half the height of the ends of the scale bar.
constexpr qreal tick = 3;
/// With less room in pixels there is no scale bar.
constexpr qreal leastBar = 24;

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

bool isTiny(const QSize &size)
{
    return std::min(size.width(), size.height()) < tinyViewer;
}

} // namespace

struct OverlayPainter::Text
{
    QPointF anchor;
    Qt::Alignment alignment;
    QString text;
    QFont font;
    QColor color;
};

struct OverlayPainter::PlacedBar
{
    QString label;
    QPointF middle; ///< of the line
    qreal half = 0; ///< of its length
    QRectF rect;
};

QRect OverlayPainter::badgeRect(const QSize &size)
{
    return {size.width() - border - badgeSize, border, badgeSize, badgeSize};
}

void OverlayPainter::paint(
    QPainter &painter, const QSize &size, const OverlayContent &content, const QRect &covered)
{
    m_covered = covered;
    paintLines(painter, content);
    const QVector<Text> texts = placeTexts(painter.font(), size, content);
    QVector<QRectF> taken;
    for (const Text &each : texts) {
        taken.append(HaloText::rect(each.anchor, each.alignment, each.text, each.font));
    }
    const auto bar = placeScaleBar(painter.font(), size, content.mmPerPixel, taken);
    taken << covered << (bar ? bar->rect : QRectF())
          << (content.link == OverlayContent::Link::None ? QRect() : badgeRect(size));
    ShapePainter(painter, m_text, size).paint(content.shapes, taken);
    for (const Text &each : texts) {
        m_text.draw(painter, each.anchor, each.alignment, each.text, each.font, each.color);
    }
    if (bar) {
        paintScaleBar(painter, *bar);
    }
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

QVector<OverlayPainter::Text> OverlayPainter::placeTexts(
    const QFont &font, const QSize &size, const OverlayContent &content) const
{
    QVector<Text> texts;
    for (const auto corner : {OverlayContent::TopLeft, OverlayContent::TopRight,
             OverlayContent::BottomLeft, OverlayContent::BottomRight}) {
        texts += placeCorner(font, size, content, corner);
    }
    return isTiny(size) ? texts : texts + placeLetters(font, size, content);
}

QVector<OverlayPainter::Text> OverlayPainter::placeCorner(const QFont &font, const QSize &size,
    const OverlayContent &content, OverlayContent::Corner corner) const
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
    const int height = HaloText::lineHeight(font);
    const QFontMetrics metrics(font);
    const int room = std::max(size.width() / 2 - inset - border, badgeSize);
    const bool isUnderBar = corner == OverlayContent::BottomRight && !m_covered.isNull();
    const int bottom = isUnderBar ? m_covered.top() : size.height();
    QPointF anchor(isLeft ? inset : size.width() - inset, isTop ? border : bottom - border);
    QVector<Text> texts;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        texts.append({anchor, alignment, metrics.elidedText(lines[i], Qt::ElideRight, room), font,
            i < numTexts ? OverlayColors::text() : OverlayColors::warning()});
        anchor.ry() += isTop ? height : -height;
    }
    return texts;
}

QVector<OverlayPainter::Text> OverlayPainter::placeLetters(
    const QFont &textFont, const QSize &size, const OverlayContent &content) const
{
    QFont font = textFont;
    font.setBold(true);
    const qreal middleX = size.width() / 2.0;
    const qreal middleY = size.height() / 2.0;
    const bool isCovered = !m_covered.isNull() && m_covered.left() < middleX + badgeSize;
    const qreal bottom = isCovered ? m_covered.top() : size.height();
    const qreal aboveScaleBar
        = bottom - border - (isCovered ? 0.0 : 2.0 * HaloText::lineHeight(font));
    const auto letter
        = [&](OverlayContent::Edge edge, const QPointF &anchor, Qt::Alignment alignment) {
              return Text{anchor, alignment, content.letters[edge], font, OverlayColors::text()};
          };
    return {
        letter(OverlayContent::Left, {border + 2.0, middleY}, Qt::AlignLeft | Qt::AlignVCenter),
        letter(OverlayContent::Right, {size.width() - border - 2.0, middleY},
            Qt::AlignRight | Qt::AlignVCenter),
        letter(OverlayContent::Top, {middleX, border}, Qt::AlignHCenter | Qt::AlignTop),
        letter(
            OverlayContent::Bottom, {middleX, aboveScaleBar}, Qt::AlignHCenter | Qt::AlignBottom),
    };
}

std::optional<OverlayPainter::PlacedBar> OverlayPainter::placeScaleBar(
    const QFont &font, const QSize &size, double mmPerPixel, const QVector<QRectF> &texts) const
{
    if (mmPerPixel <= 0 || isTiny(size)) {
        return std::nullopt;
    }
    const qreal middle = size.width() / 2.0;
    const qreal y = size.height() - border - tick;
    const qreal top = y - tick - HaloText::lineHeight(font);
    const QRectF band(0, top, size.width(), size.height() - top);
    qreal left = border;
    qreal right = (m_covered.isNull() ? size.width() : m_covered.left()) - border;
    for (const QRectF &text : texts) {
        if (text.intersects(band)) {
            const bool isBefore = text.center().x() < middle;
            isBefore ? left = std::max(left, text.right()) : right = std::min(right, text.left());
        }
    }
    const qreal room = right - left - 2 * tick;
    if (room < leastBar) {
        return std::nullopt;
    }
    const ScaleBar bar = ScaleBar::fitting(std::min(size.width() / 4.0, room) * mmPerPixel);
    const qreal half = bar.millimetres / mmPerPixel / 2;
    const QSizeF label = HaloText::rect({}, {}, bar.label, font).size();
    const qreal width = std::max(2 * half, label.width());
    if (width > room) {
        return std::nullopt;
    }
    const qreal x
        = std::clamp(middle, left + tick + width / 2, std::max(left, right - tick - width / 2));
    return PlacedBar{bar.label, {x, y}, half, {x - width / 2, top, width, band.height()}};
}

void OverlayPainter::paintScaleBar(QPainter &painter, const PlacedBar &bar)
{
    const qreal y = bar.middle.y();
    const qreal left = bar.middle.x() - bar.half;
    const qreal right = bar.middle.x() + bar.half;
    QPainterPath path(QPointF(left, y - tick));
    path.lineTo(left, y + tick);
    path.moveTo(left, y);
    path.lineTo(right, y);
    path.moveTo(right, y - tick);
    path.lineTo(right, y + tick);
    strokeWithHalo(painter, path, OverlayColors::text(), 1);
    m_text.draw(painter, {bar.middle.x(), y - tick}, Qt::AlignHCenter | Qt::AlignBottom, bar.label,
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
