#pragma once

#include <QString>

#include <string>
#include <vector>

/// One way in which viewers can be linked: the type of group in the viewer database, and its name
/// for the user.
struct LinkType
{
    const std::string &group;
    const char *label; ///< to be translated in the context "LinkType"
    bool ofSlices;
    bool ofVolumes;

    [[nodiscard]] QString name() const;
    /// All of them, in the order in which they are offered.
    static const std::vector<LinkType> &all();
};
