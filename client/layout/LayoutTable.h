#pragma once

#include "client/geometry/PlaneKind.h"
#include "platform/util/McBox2f.h"

#include <QString>
#include <QStringList>

#include <vector>

/// A way to divide the screen among viewers. A plain value.
struct ViewerLayout
{
    struct Place
    {
        McBox2f box;
        bool isVolume = false; ///< a 3D viewer
        PlaneKind plane = PlaneKind::Axial; ///< of a slice viewer
    };

    QString name; ///< on the command line
    std::vector<Place> places;
};

/// The layouts that there are.
namespace LayoutTable {

const std::vector<ViewerLayout> &all();
/// Null for an unknown name.
const ViewerLayout *find(const QString &name);
QStringList names();

} // namespace LayoutTable
