#pragma once

#include <QCache>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QRectF>
#include <QString>

class QPainter;

/// Draws lines of text with a dark halo around them, readable on any image, also on bone. Finished
/// lines are kept, since most of them stay the same from one frame to the next. GUI thread only.
class HaloText
{
public:
    HaloText();

    /// Height of a line in device-independent pixels.
    [[nodiscard]] static int lineHeight(const QFont &font);
    /// What draw() covers with the same arguments; empty for no text.
    [[nodiscard]] static QRectF rect(
        const QPointF &anchor, Qt::Alignment alignment, const QString &text, const QFont &font);
    /// Draws one line. @param anchor a point of the text's box: which one is told by @p alignment.
    void draw(QPainter &painter, const QPointF &anchor, Qt::Alignment alignment,
        const QString &text, const QFont &font, const QColor &color);

private:
    [[nodiscard]] static QSizeF sizeOf(const QString &text, const QFont &font);
    [[nodiscard]] static QImage rendered(
        const QString &text, const QFont &font, const QColor &color, qreal pixelRatio);

    QCache<QString, QImage> m_lines;
};
