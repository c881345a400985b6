#pragma once

#include <QString>

#include <string>
#include <vector>

class WorkstationViewer;

/// One way in which viewers can be linked: the type of group in the viewer database, and its name
/// for the user.
struct LinkType
{
    const std::string &group;
    const char *label; ///< to be translated in the context "LinkType"
    bool ofSlices;
    bool ofVolumes;

    [[nodiscard]] QString name() const;
    /// Whether viewers of this kind can be linked so.
    [[nodiscard]] bool appliesTo(const WorkstationViewer &viewer) const;
    /// All of them, in the order in which they are offered.
    static const std::vector<LinkType> &all();
};
