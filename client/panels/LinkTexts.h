#pragma once

#include <QString>

#include <string>

class ExViewerDBGroup;
class WorkstationViewer;
struct LinkType;

/// What the panel of links calls viewers, groups and links, in the user's language.
namespace LinkTexts {

/// "Axial", "3D".
[[nodiscard]] QString planeName(const WorkstationViewer &viewer);
/// Where the viewer is on its screen; empty when it is on none.
[[nodiscard]] QString placeName(const WorkstationViewer &viewer);
/// Both: "Axial (top left)".
[[nodiscard]] QString nameOf(const WorkstationViewer &viewer);
/// Of all viewers of a group.
[[nodiscard]] QString namesOf(const ExViewerDBGroup &group);
/// What the group of a viewer is called, which must have one of this type.
[[nodiscard]] QString groupName(const std::string &type, const WorkstationViewer &viewer);
/// How a viewer is linked, and what can be done about it.
[[nodiscard]] QString toolTip(const LinkType &type, const WorkstationViewer &viewer);

} // namespace LinkTexts
