#pragma once

#include "client/overlay/OverlayContent.h"

#include <QRectF>
#include <QSize>
#include <QSizeF>

class HaloText;
class QPainter;

/// Draws measurements over an image, and their results beside them.
class ShapePainter
{
public:
    /// @param text draws the labels. @param size of the viewer, in device-independent pixels.
    ShapePainter(QPainter &painter, HaloText &text, const QSize &size);

    /// @param covered where labels cannot be seen, or would cover other texts.
    void paint(const QVector<OverlayContent::Shape> &shapes, const QVector<QRectF> &covered);

    /// Where labels go, in the order of the shapes: each beside its shape, inside the viewer, and,
    /// as long as there is such a place, off all shapes and other labels. Empty ones stay empty.
    /// @param sizes of the labels. @param covered is kept clear, too.
    [[nodiscard]] static QVector<QRectF> labelPlaces(const QVector<OverlayContent::Shape> &shapes,
        const QVector<QSizeF> &sizes, const QSize &viewer, const QVector<QRectF> &covered = {});

private:
    void paintLine(const OverlayContent::Shape &shape);
    void paintHandles(const OverlayContent::Shape &shape);
    void paintLabel(const OverlayContent::Shape &shape, const QRectF &place);
    [[nodiscard]] QSizeF labelSize(const OverlayContent::Shape &shape) const;

    QPainter &m_painter;
    HaloText &m_text;
    QSize m_size;
};
