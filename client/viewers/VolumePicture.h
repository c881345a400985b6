#pragma once

#include "client/viewers/VolumeScene.h"

#include <QImage>

#include <functional>
#include <memory>
#include <string>

/// Draws volumes by rays through their values: done by VTK in a module (see McModule). Made, used
/// and destroyed in one thread, any; needs an X display (see DisplayProbe).
class VolumePicture
{
public:
    /// Asked while a picture is made: true to give it up.
    using Interrupted = std::function<bool()>;

    virtual ~VolumePicture() = default;

    /// The first call of the process loads the module.
    /// @return null when that is not possible: see problem().
    [[nodiscard]] static std::unique_ptr<VolumePicture> make();
    /// Why there can be none; empty when there can. For the user.
    [[nodiscard]] static const std::string &problem();

    /// Null when it was given up.
    [[nodiscard]] virtual QImage draw(const VolumeScene &scene, const Interrupted &interrupted) = 0;
};
