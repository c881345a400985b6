#pragma once

#include "client/geometry/PlaneKind.h"
#include "client/geometry/SliceStack.h"
#include "client/viewers/SliceReslicer.h"
#include "client/viewers/ViewerStates.h"
#include "client/viewers/WorkstationViewer.h"
#include "platform/render/KxSlice.h"

#include <QPointF>

#include <optional>

/// Shows one plane of a volume. Positions in the widget are device-independent pixels from its
/// top-left corner. Setters do nothing when nothing changes; else they request a frame and notify
/// as told at each. They change this viewer only: see LinkedActions for all that follow it.
class SliceViewer final : public WorkstationViewer
{
public:
    SliceViewer(PlaneKind plane, QWidget *parent);

    [[nodiscard]] PlaneKind plane() const { return m_plane; }
    /// The standard plane that was shown last: what an oblique one was turned away from.
    [[nodiscard]] PlaneKind ownPlane() const { return m_ownPlane; }
    /// Goes back to a standard plane, through the present center, at the size that fits.
    /// Notifies VIEWER_SUBTYPE_CHANGED. Oblique is ignored: see rotate().
    void setPlane(PlaneKind plane);
    /// The plane shown; its center is in the middle of the widget.
    [[nodiscard]] KxSlice *slice(bool preview) const override;
    [[nodiscard]] const KxSlice &shownSlice() const { return m_slice; }
    /// Turns the plane about an axis (unit vector, patient coordinates) through its center; it is
    /// oblique from then on. @param angle in radians. Notifies SLICE_CHANGED.
    void rotate(const McVec3d &axis, double angle);

    /// The planes that scrolling goes through.
    [[nodiscard]] const SliceStack &stack() const { return m_stack; }
    /// The shown plane's place in the stack, from 0.
    [[nodiscard]] int sliceIndex() const;
    /// Brought into range. Notifies SLICE_CHANGED.
    void setSliceIndex(int index);
    /// Shows the plane of the stack that is next to a point of the patient (mm).
    void scrollTo(const McVec3d &point);

    /// Device-independent pixels for a millimetre.
    [[nodiscard]] double zoom() const { return m_zoom; }
    /// Brought into range. Notifies ZOOM_CHANGED.
    void setZoom(double pixelsPerMm);
    /// Whether the whole volume is kept in sight when the widget's size changes.
    [[nodiscard]] bool isFitting() const { return m_isFitting; }
    /// Shows the whole volume, in the middle. Notifies ZOOM_CHANGED and SLICE_CHANGED.
    void fit();
    /// Moves the middle of the picture by as much of a shift (mm) as lies in the plane. Notifies
    /// SLICE_CHANGED.
    void pan(const McVec3d &shift);

    [[nodiscard]] const KxVolume::Window &window() const { return m_window; }
    /// A width below the least one is raised to it. Notifies DATA_WINDOW_CHANGED.
    void setWindow(const KxVolume::Window &window);

    /// Whether dark and bright are exchanged.
    [[nodiscard]] bool isInverted() const { return m_isInverted; }
    /// Notifies COLORMAP_CHANGED.
    void setInverted(bool inverted);
    /// Whether left and right, or top and bottom, are exchanged against the plane's own directions.
    /// Another plane and other images are shown in theirs.
    [[nodiscard]] bool isFlipped(Qt::Orientation orientation) const;
    /// Notifies SLICE_CHANGED and VIEWER_FLIPPED.
    void setFlipped(Qt::Orientation orientation, bool flipped);
    /// Whether the picture is one that a mirror would show: flipped one way and not the other.
    [[nodiscard]] bool isMirrored() const { return m_isFlippedAcross != m_isFlippedDown; }

    /// How the series is shown now.
    [[nodiscard]] SliceView view() const;
    /// Shows the series so again, of a standard plane its own directions at the place of the view;
    /// ignored while there are no images. Notifies of each thing that changes.
    void setView(const SliceView &view);

    [[nodiscard]] McVec3d patientAt(const QPointF &position) const;
    [[nodiscard]] QPointF positionOf(const McVec3d &point) const;

    /// Why there is no picture; empty when there is one, or nothing to show.
    [[nodiscard]] QString obstacle() const;

    void renderFrame() override;
    void cleanUpNodes() override;
    void resized() override;
    [[nodiscard]] OverlayContent overlayContent() const override;

protected:
    ~SliceViewer() override;

    void volumeChanged(bool isOtherPhase) override;
    void voxelsChanged() override;

private:
    void setSlice(const KxSlice &slice);
    /// The slice with its directions exchanged as this viewer is flipped; twice gives it back.
    [[nodiscard]] KxSlice flipped(const KxSlice &slice) const;
    void showWholeVolume();
    [[nodiscard]] double fittingZoom() const;
    [[nodiscard]] QSize frameSize() const;
    [[nodiscard]] bool isDrawn() const;
    void cut();

    PlaneKind m_plane;
    PlaneKind m_ownPlane;
    KxSlice m_slice;
    SliceStack m_stack;
    double m_zoom = 1;
    bool m_isFitting = true;
    KxVolume::Window m_window;
    bool m_isInverted = false;
    bool m_isFlippedAcross = false;
    bool m_isFlippedDown = false;
    /// Images that a window was set for by hand keep it.
    const KxImageSeries *m_windowOwner = nullptr;

    SliceReslicer m_reslicer;
    bool m_needsCut = true;
    /// Of the last cut at full size.
    double m_cutMilliseconds = 0;
    bool m_cutIsFinal = true;
    /// What the frame shown was made with; nothing before the first one.
    std::optional<KxVolume::Window> m_drawnWindow;
    bool m_drawnInverted = false;
};
