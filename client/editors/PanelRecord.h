#pragma once

#include "client/desktop/ViewerPage.h"

#include <QByteArray>
#include <QList>

#include <array>
#include <optional>

/// Where all panels are, as a value and as JSON text: for each page of viewers its three regions,
/// each with its extent, and the region of the studies' own window.
///     { "format": "panels", "version": 1, "studies": "…",
///       "pages": [{ "Left": { "layout": "…", "extent": 288, "collapsed": false }, … }, …] }
struct PanelRecord
{
    struct Region
    {
        QByteArray layout; ///< as the region saves it
        ViewerPage::Extent extent;
    };
    using Page = std::array<Region, ViewerPage::numPlaces>;

    QList<Page> pages;
    QByteArray studies;

    [[nodiscard]] QByteArray toBytes() const;
    /// Nothing when anything in it but the layouts is missing, of the wrong kind or out of range.
    [[nodiscard]] static std::optional<PanelRecord> fromBytes(const QByteArray &bytes);
};
