#pragma once

#include "client/viewers/SliceCutter.h"
#include "client/viewers/WindowTable.h"
#include "platform/render/KxSlice.h"
#include "platform/render/KxVolume.h"
#include "platform/util/McHandle.h"

#include <QImage>
#include <QSize>

#include <memory>

/// Cuts a plane out of a volume and shows it in a window of values. Works on the grid of the
/// volume with its whole affine transform, so that sheared grids come out right. Owned by a slice
/// viewer; keeps the volume alive. GUI thread only.
class SliceReslicer
{
public:
    /// What the cutter has given last.
    struct Cut
    {
        const void *values = nullptr; ///< null for none
        QSize pixels;
    };

    SliceReslicer();
    ~SliceReslicer();
    SliceReslicer(const SliceReslicer &) = delete;
    SliceReslicer &operator=(const SliceReslicer &) = delete;

    /// Null for none.
    void setVolume(const McHandle<KxVolume> &volume);
    /// The voxels of the volume have been written to.
    void voxelsChanged();
    /// Cuts the plane, its center in the middle of the picture. Costs most of a frame's time.
    /// @param mmPerPixel size of a pixel. @param pixels size of the picture, not empty.
    void cut(const KxSlice &slice, double mmPerPixel, const QSize &pixels);
    /// The last cut in a window; black outside the volume. Null before the first cut, and where
    /// volumes cannot be cut at all (see SliceCutter::problem()).
    /// @param inverted dark for bright, of values that are no colours. What lies outside volumes of
    /// unsigned bytes cannot be told from their zeros, and is then as bright as those.
    [[nodiscard]] QImage image(const KxVolume::Window &window, bool inverted);

private:
    std::unique_ptr<SliceCutter> m_cutter;
    McHandle<KxVolume> m_volume; ///< Keeps the voxels that the cutter looks at.
    Cut m_cut;
    WindowTable m_table;
};
