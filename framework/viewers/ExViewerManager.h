#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/viewers/Ex.h"
#include "platform/util/McBox2f.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

#include <functional>
#include <memory>
#include <type_traits>

class ExBaseViewer;
class ExContextToolBar;
class ExScreen;
class ExViewerManagerPrivate;
class QWidget;

/// Owns the live viewers and a pool of removed ones for reuse, and tracks the active viewer. The
/// order of its list is the order of every viewer group. The client derives one manager and creates
/// it once; it registers itself. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExViewerManager
{
public:
    using LessThan
        = std::function<bool(const McHandle<ExBaseViewer> &, const McHandle<ExBaseViewer> &)>;
    template <typename Compare>
    using ComparisonResult = std::invoke_result_t<Compare &, const McHandle<ExBaseViewer> &,
        const McHandle<ExBaseViewer> &>;

    ExViewerManager(const ExViewerManager &) = delete;
    ExViewerManager &operator=(const ExViewerManager &) = delete;
    /// Destroys the context tool bar and lets all viewers go, the active one too.
    virtual ~ExViewerManager();

    /// The manager. Undefined before the client has created it.
    static ExViewerManager &getInstance();
    /// The manager; null before the client has created it and after it is gone.
    static ExViewerManager *instancePointer();

    [[nodiscard]] int numViewers() const;
    /// @param index 0 to numViewers() - 1, not checked.
    [[nodiscard]] ExBaseViewer *viewer(int index) const;
    /// The viewer's position, or -1.
    [[nodiscard]] int viewerIndex(const ExBaseViewer *viewer) const;
    /// Sorts the viewers; not stable.
    void sortViewers(const LessThan &isLess);
    /// The same with a comparison that says how two viewers compare: a value below, at or above 0.
    template <typename Compare>
    requires(!std::is_same_v<ComparisonResult<Compare>, bool>) void sortViewers(Compare compare)
    {
        sortViewers(LessThan(
            [&compare](const auto &a, const auto &b) -> bool { return compare(a, b) < 0; }));
    }

    /// Adds a viewer at the end and holds it. Its render widget gets an object name of the form
    /// "RenderWidget_%1" with the number after the highest in use. The active modal tools begin to
    /// work on it. Null is ignored.
    /// @param box where it is placed on its screen, in normalized coordinates.
    /// @param place whether it is placed there now.
    void addViewer(ExBaseViewer *viewer, const McBox2f &box, bool place);
    /// Takes a viewer out, from the list and from its screen. A reusable one goes to the pool; the
    /// deferred notifications of any other are dropped, and it is destroyed when nobody else holds
    /// it. Of a viewer that the manager does not hold only the object name of the render widget is
    /// cleared.
    void removeViewer(ExBaseViewer *viewer);
    /// Empties the context tool bar, then does the same for all viewers, from the last to the
    /// first.
    void removeAllViewers();

    /// The active viewer, or null.
    [[nodiscard]] ExBaseViewer *activeViewer() const;
    static bool isActiveViewer(const ExBaseViewer &viewer);
    /// Makes a viewer the active one, null for none, and publishes ACTIVE_VIEWER_CHANGED with the
    /// new viewer and the previous one as data when that is a change. A viewer's activation hook is
    /// called in any case. The active viewer is held. The context tool bar leaves the previous
    /// viewer before the publication, and floats in the new one's render widget after it.
    virtual void setActiveViewer(ExBaseViewer *viewer);
    /// The screen on which a viewer is, or will be, shown; null when there is none for it.
    virtual ExScreen *screenForViewer(ExBaseViewer *viewer) = 0;
    /// The tool bar that floats in the active viewer; made on first use, and anew when it was
    /// destroyed. Never null.
    ExContextToolBar *contextToolBar();

    /// Stops all live viewers: takes back their requested frames, ends their rendering, frees what
    /// was built for it.
    void cleanupViewers();
    /// Has all viewers, live and unused, drop images that can be computed anew.
    void clearCachedImages();
    /// Has all viewers, live and unused, connect to their data anew.
    void reattachViewers();
    /// Empties the pool.
    void deleteUnusedViewers();

protected:
    ExViewerManager();

    /// Takes a viewer of this type, which draws in a window, from the pool; an empty handle when
    /// there is none.
    McHandle<ExBaseViewer> unusedViewer(Ex::ViewerType type);
    /// Makes a viewer fit for the pool: no display set, an opaque black background.
    void resetDisplaySetAndImageSet(ExBaseViewer *viewer);

private:
    /// A viewer that was taken out leaves its screen and goes to the pool, or its deferred
    /// notifications are dropped. @param preferredFirst whether one that is preferred for reuse
    /// goes to the front. @return whether it is in the pool.
    bool retire(ExBaseViewer *viewer, bool preferredFirst);
    void attachContextToolBar(QWidget *widget);
    /// What setActiveViewer() does for a viewer that is not the active one.
    void changeActiveViewer(ExBaseViewer *viewer);

    std::unique_ptr<ExViewerManagerPrivate> d;
};
