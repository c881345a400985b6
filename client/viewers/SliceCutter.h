#pragma once

#include "platform/render/KxVolume.h"
#include "platform/util/McVec3d.h"

#include <QSize>

#include <memory>
#include <string>

/// Cuts a plane out of a volume: what SliceReslicer has VTK do, in a module (see McModule). One
/// thread at a time.
class SliceCutter
{
public:
    /// Where the values of a picture are taken, in steps of the volume's grid.
    struct Plane
    {
        McVec3d first; ///< the middle of the first pixel
        McVec3d right; ///< to the next pixel
        McVec3d down; ///< to the next line
        McVec3d normal;
    };

    virtual ~SliceCutter() = default;

    /// The first call of the process loads the module.
    /// @return null when that is not possible: see problem().
    [[nodiscard]] static std::unique_ptr<SliceCutter> make();
    /// Why there can be none; empty when there can. For the user.
    [[nodiscard]] static const std::string &problem();

    /// @param volume stays and keeps its place in memory until another one is set; null for none.
    /// @param outside the value that a cut has where there is no volume.
    virtual void setVolume(KxVolume *volume, double outside) = 0;
    /// The voxels of the volume have been written to.
    virtual void voxelsChanged() = 0;
    /// @param pixels size of the picture, not empty.
    /// @return values of the type and with the components of the volume, line by line; valid until
    /// the next cut and the next volume.
    virtual const void *cut(const Plane &plane, const QSize &pixels) = 0;
};
