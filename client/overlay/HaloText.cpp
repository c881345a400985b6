#include "client/overlay/HaloText.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace {

constexpr int keptLines = 600;
/// Room for the halo on every side.
constexpr int margin = 2;

QPointF cornerOf(const QPointF &anchor, Qt::Alignment alignment, const QSizeF &size)
{
    QPointF corner = anchor;
    if (alignment.testFlag(Qt::AlignRight)) {
        corner.rx() -= size.width();
    } else if (alignment.testFlag(Qt::AlignHCenter)) {
        corner.rx() -= size.width() / 2;
    }
    if (alignment.testFlag(Qt::AlignBottom)) {
        corner.ry() -= size.height();
    } else if (alignment.testFlag(Qt::AlignVCenter)) {
        corner.ry() -= size.height() / 2;
    }
    return corner;
}

/// Draws the text around the baseline, at every place within a reach in pixels.
void drawAround(QPainter &painter, const QPointF &baseline, const QString &text, int reach)
{
    for (int dx = -reach; dx <= reach; ++dx) {
        for (int dy = -reach; dy <= reach; ++dy) {
            if (dx * dx + dy * dy <= reach * reach + 1) {
                painter.drawText(baseline + QPointF(dx, dy), text);
            }
        }
    }
}

} // namespace

HaloText::HaloText()
    : m_lines(keptLines)
{ }

int HaloText::lineHeight(const QFont &font)
{
    return QFontMetrics(font).height() + 1;
}

QSizeF HaloText::sizeOf(const QString &text, const QFont &font)
{
    const QFontMetrics metrics(font);
    return QSizeF(metrics.horizontalAdvance(text) + 2 * margin + 2, metrics.height() + 2 * margin);
}

QRectF HaloText::rect(
    const QPointF &anchor, Qt::Alignment alignment, const QString &text, const QFont &font)
{
    const QSizeF size = text.isEmpty() ? QSizeF() : sizeOf(text, font);
    return {text.isEmpty() ? anchor : cornerOf(anchor, alignment, size), size};
}

QImage HaloText::rendered(
    const QString &text, const QFont &font, const QColor &color, qreal pixelRatio)
{
    const QSizeF size = sizeOf(text, font);
    QImage image((size * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    const QPointF baseline(margin, margin + QFontMetrics(font).ascent());
    constexpr int outerDarkness = 90; // It adds up where letters are close.
    painter.setPen(QColor(0, 0, 0, outerDarkness));
    drawAround(painter, baseline, text, margin);
    painter.setPen(Qt::black);
    drawAround(painter, baseline, text, 1);
    painter.setPen(color);
    painter.drawText(baseline, text);
    return image;
}

void HaloText::draw(QPainter &painter, const QPointF &anchor, Qt::Alignment alignment,
    const QString &text, const QFont &font, const QColor &color)
{
    if (text.isEmpty()) {
        return;
    }
    const qreal pixelRatio = painter.device()->devicePixelRatioF();
    const QString key = QString::number(color.rgba()) % QLatin1Char('|')
        % QString::number(pixelRatio) % QLatin1Char('|') % font.key() % QLatin1Char('|') % text;
    const QImage *image = m_lines.object(key);
    if (image == nullptr) {
        m_lines.insert(key, new QImage(rendered(text, font, color, pixelRatio)));
        image = m_lines.object(key);
    }
    const QPointF corner = cornerOf(anchor, alignment, image->deviceIndependentSize());
    // On whole device pixels, or the text gets soft.
    const QPointF snapped(std::round(corner.x() * pixelRatio) / pixelRatio,
        std::round(corner.y() * pixelRatio) / pixelRatio);
    painter.drawImage(snapped, *image);
}
