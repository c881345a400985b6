#include "client/layout/LayoutTable.h"

#include <algorithm>

namespace LayoutTable {

namespace {

constexpr float third = 1.0F / 3;

ViewerLayout::Place slice(const McBox2f &box, PlaneKind plane)
{
    return {box, false, plane};
}

ViewerLayout::Place volume(const McBox2f &box)
{
    return {box, true, PlaneKind::Axial};
}

} // namespace

const std::vector<ViewerLayout> &all()
{
    static const std::vector<ViewerLayout> layouts{
        {QStringLiteral("1x1"), {slice({0, 0, 1, 1}, PlaneKind::Original)}},
        {QStringLiteral("2x2"),
            {slice({0, 0, 0.5F, 0.5F}, PlaneKind::Axial),
                slice({0.5F, 0, 1, 0.5F}, PlaneKind::Sagittal),
                slice({0, 0.5F, 0.5F, 1}, PlaneKind::Coronal), volume({0.5F, 0.5F, 1, 1})}},
        {QStringLiteral("1+3"),
            {slice({0, 0, 2 * third, 1}, PlaneKind::Axial),
                slice({2 * third, 0, 1, third}, PlaneKind::Sagittal),
                slice({2 * third, third, 1, 2 * third}, PlaneKind::Coronal),
                volume({2 * third, 2 * third, 1, 1})}},
    };
    return layouts;
}

const ViewerLayout *find(const QString &name)
{
    const auto found = std::find_if(all().begin(), all().end(),
        [&name](const ViewerLayout &layout) { return layout.name == name; });
    return found == all().end() ? nullptr : &*found;
}

QStringList names()
{
    QStringList names;
    for (const ViewerLayout &layout : all()) {
        names += layout.name;
    }
    return names;
}

} // namespace LayoutTable
