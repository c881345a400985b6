#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/dispatch/ExActionHandler.h"
#include "framework/viewers/Ex.h"
#include "platform/render/KxCommonRenderer.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandableThreaded.h"

#include <string>

class ExEventHandler;
class ExModal;
class KxImageSeries;
class KxSlice;
class KxVolume;
class QWidget;

/// Base of every viewer: 2D, 3D and the like. The framework never draws; it finds, groups, links
/// and activates viewers through this class, and the engine's render queue has them draw. Held by
/// McHandle; the viewer manager holds the live ones. GUI thread only, but for the reference count.
class MOVARA_FRAMEWORK_EXPORT ExBaseViewer : public ExActionHandler,
                                             public KxCommonRenderer,
                                             public virtual McHandableThreaded
{
public:
    ExBaseViewer();
    ~ExBaseViewer() override;

    /// Orientation of a 2D view from the patient-orientation letters of its image axes.
    /// @param letters one of A, P, R, L, H, F for either axis; only the first two characters are
    /// looked at, with case.
    ///        Null counts as empty, which is axial.
    static Ex::View getViewOrientation(const char *letters);

    // What the viewer is and shows.

    /// The viewer's kind; never Ex::ANY_VIEWER_TYPE.
    [[nodiscard]] virtual Ex::ViewerType viewerType() const = 0;
    /// Names the display set, that is the place in the layout and what is to be shown there; empty
    /// while it has none.
    [[nodiscard]] virtual std::string displaySetID() const = 0;
    /// The viewer manager sets the empty string when it puts the viewer aside.
    virtual void setDisplaySetID(const std::string &id) = 0;
    /// The image set shown. @param index 0 is the primary one, 1 the secondary one of a fused view.
    /// Null when there is none.
    [[nodiscard]] virtual KxImageSeries *imageSet(int index) const = 0;
    /// The volume shown now: of a series with several phases, the current phase. @param index as
    /// for imageSet(). Null when there is none.
    [[nodiscard]] virtual KxVolume *volume(int index) const = 0;
    /// The loaded volume that volume(index) was made from, by which viewers are told to show the
    /// same volume. Differs from volume() in viewers that show something derived (filtered,
    /// projected). The base returns volume(index).
    [[nodiscard]] virtual KxVolume *sourceVolume(int index) const;
    /// The plane shown, owned by the viewer; null in viewers without one, as in the base.
    /// @param preview true for the plane that an interaction under way shows, false for the settled
    /// one.
    [[nodiscard]] virtual KxSlice *slice(bool preview) const;
    /// Whether the viewer can show, and tools can work on, this image set. The base accepts any.
    [[nodiscard]] virtual bool acceptsImageSet(const KxImageSeries &imageSet) const;

    // Widget and input.

    /// The widget in which the viewer draws, as a rule an ExBaseViewerRenderWidget; null while
    /// there is none (off-screen).
    [[nodiscard]] virtual QWidget *renderWidget() const = 0;
    /// The handler of the viewer's input, owned by the viewer and connected to its render widget;
    /// null for a viewer without input.
    [[nodiscard]] virtual ExEventHandler *eventHandler() const = 0;
    /// The modal tools that work on the viewer, in the order in which they came; the last one is
    /// asked first. Not owned.
    [[nodiscard]] const McDArray<ExModal *> &modalTools() const { return m_modalTools; }
    /// Adds a modal tool at the end, or moves it there. Null is ignored.
    virtual void appendModalTool(ExModal *tool);
    /// Takes a modal tool out. Unknown ones are ignored.
    virtual void removeModalTool(ExModal *tool);
    /// Takes a modal tool out of all viewers that there are, whether the viewer manager holds them
    /// or not. The tool itself is not touched.
    static void removeModalToolEverywhere(ExModal *tool);
    /// Whether the tool is among the modal tools of any viewer.
    [[nodiscard]] static bool hasModalToolAnywhere(ExModal *tool);

    // What the viewer manager and the screens call.

    /// The viewer has been made the active one, also when it was that before.
    virtual void activated();
    /// Whether the viewer may be kept for reuse when it is removed. The base says no.
    [[nodiscard]] virtual bool isReusable() const;
    /// Of reusable viewers that are removed all at once, whether this one is to be taken back
    /// before the others. The base says no.
    [[nodiscard]] virtual bool isPreferredForReuse() const;
    /// The viewer has been taken from the screen. The base does nothing.
    /// @param final false when it waits in the pool for reuse; true when it is not going to be used
    /// again.
    virtual void putAside(bool final);
    /// The viewer has been taken from the pool and is about to be used again. The base does
    /// nothing.
    virtual void takenBack();
    /// Drops images that can be computed anew. The base has none.
    virtual void clearCachedImages();
    /// Connects the viewer to its data anew, after these were loaded again. The base does nothing.
    virtual void reattach();
    /// Whether the viewer keeps its place on the screen when the others are scaled. The base says
    /// no.
    [[nodiscard]] virtual bool keepsPlacement() const;

private:
    McDArray<ExModal *> m_modalTools;
};
