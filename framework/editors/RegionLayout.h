#pragma once

#include "platform/util/McBox2f.h"

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QStringList>

#include <optional>

/// What a region keeps over restarts, as a value and as JSON text:
///     { "format": "editor region", "version": 1,
///       "subRegions": [{ "editors": ["name", ...], "current": "name", "size": 200 }, ...],
///       "closed":     [{ "editor": "name", "subRegion": 0 }, ...],
///       "floating":   [{ "editor": "name", "subRegion": 0, "geometry": "x|y|width|height",
///                        "relative": [xMin, yMin, xMax, yMax] }, ...] }
struct RegionLayout
{
    struct SubRegion
    {
        QStringList editors; ///< names in the order of the tabs
        QString current;
        int size = -1; ///< pixels along the stacking; 0 collapsed, -1 not known
    };
    struct Closed
    {
        QString editor;
        int subRegion = 0; ///< where it comes back
    };
    struct Floating
    {
        QString editor;
        int subRegion = 0; ///< where it is docked
        QRect geometry; ///< of the window, in pixels of the desktop
        McBox2f relative; ///< the same, in fractions of the screen
    };

    static constexpr int version = 1;
    static constexpr int mostSubRegions = 64;

    QList<SubRegion> subRegions;
    QList<Closed> closed;
    QList<Floating> floating;

    [[nodiscard]] QByteArray toBytes() const;
    /// Nothing when anything in it is missing, of the wrong kind, out of range, or there twice.
    static std::optional<RegionLayout> fromBytes(const QByteArray &bytes);
};
