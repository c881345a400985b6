#pragma once

#include <QColor>
#include <QLineF>
#include <QPolygonF>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

/// Everything that is drawn over a viewer's image, in the widget's device-independent pixels. A
/// plain value.
struct OverlayContent
{
    enum Corner { TopLeft, TopRight, BottomLeft, BottomRight };
    enum Edge { Left, Right, Top, Bottom };
    enum class Link { None, Attached, Detached };

    struct Line
    {
        QLineF line;
        QColor color;

        friend bool operator==(const Line &, const Line &) = default;
    };

    struct Shape
    {
        QPolygonF line; ///< open, or ending where it begins
        QPolygonF handles;
        QStringList label; ///< is placed where it covers nothing
        QColor color;
        bool isPicked = false;

        friend bool operator==(const Shape &, const Shape &) = default;
    };

    /// Lines of text by Corner; the most important one of each is the outermost.
    std::array<QStringList, 4> corners;
    /// Letters of the patient's sides by Edge.
    std::array<QString, 4> letters;
    /// The plane's colour; not valid for viewers without a plane.
    QColor planeColor;
    QVector<Line> referenceLines;
    /// Measurements.
    QVector<Shape> shapes;
    /// Size of a pixel for the scale bar; 0 for none.
    double mmPerPixel = 0;
    bool isActive = false;
    Link link = Link::None;
    /// How much of the data has been read, 0 to 1; 1 hides the bar.
    double progress = 1;
    /// What is wrong or not final yet; above the texts at the bottom right, conspicuous.
    QStringList warnings;
    /// Text in the middle, when there is no image: why, and what to do.
    QString message;

    friend bool operator==(const OverlayContent &, const OverlayContent &) = default;
};
