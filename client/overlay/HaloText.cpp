#include "client/overlay/HaloText.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace {

constexpr int keptLines = 600;
/// Room for the halo on every side.
constexpr int margin = 1;

} // namespace

HaloText::HaloText()
    : m_lines(keptLines)
{ }

int HaloText::lineHeight(const QFont &font)
{
    return QFontMetrics(font).height() + margin;
}

QImage HaloText::rendered(
    const QString &text, const QFont &font, const QColor &color, qreal pixelRatio)
{
    const QFontMetrics metrics(font);
    const QSizeF size(
        metrics.horizontalAdvance(text) + 2 * margin + 2, metrics.height() + 2 * margin);
    QImage image((size * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    const QPointF baseline(margin, margin + metrics.ascent());
    painter.setPen(Qt::black);
    for (int dx = -1; dx <= 1; ++dx) {
        for (int dy = -1; dy <= 1; ++dy) {
            painter.drawText(baseline + QPointF(dx, dy), text);
        }
    }
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
    const QSizeF size = image->deviceIndependentSize();
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
    // On whole device pixels, or the text gets soft.
    const QPointF snapped(std::round(corner.x() * pixelRatio) / pixelRatio,
        std::round(corner.y() * pixelRatio) / pixelRatio);
    painter.drawImage(snapped, *image);
}
