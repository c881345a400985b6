#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/util/McBox2f.h"

#include <QList>
#include <QRect>
#include <QString>

#include <memory>

class ExBaseViewer;
class QWidget;
class ExScreenPrivate;

/// Lays out viewer widgets over side-by-side screens of the client's work area. Placements are
/// boxes in normalized coordinates: the whole work area is the unit square, x to the right, y
/// downwards, with as many equal columns as there are screens. The client's subclass turns boxes
/// into pixels. Observes the widgets, never owns them; remove a widget before it goes. GUI thread
/// only. A copy shares placements and settings with its source; the last of those that share frees
/// them. Operations on a viewer are those on its widget. Null and unknown widgets and viewers give
/// false, -1 or null.
class MOVARA_FRAMEWORK_EXPORT ExScreen
{
public:
    ExScreen();
    ExScreen(const ExScreen &);
    ExScreen &operator=(const ExScreen &);
    virtual ~ExScreen();

    /// Stores the box as the placement that is in force (full-screen or normal) and sets the
    /// widget's geometry from it.
    virtual void setChildGeometry(QWidget *widget, const McBox2f &box);
    /// Sets the geometry of every child from the placement in force, then publishes
    /// SCREEN_RECONFIGURED. Nothing while reconfiguring is disabled.
    virtual void reconfigure();

    // What the client's subclass supplies.

    /// Number of screens, that is of columns; below 1 counts as 1 wherever something is divided by
    /// it.
    [[nodiscard]] virtual int numScreens() const = 0;
    /// Number of screen rectangles to look at when the screen of a point is wanted.
    [[nodiscard]] virtual int numScreenRects() const = 0;
    /// Rectangle of a screen in global device-independent pixels. @param screen 0 to
    /// numScreenRects() - 1.
    [[nodiscard]] virtual QRect screenRect(int screen) const = 0;
    /// Whether the screens stand side by side in one window; for the client, not asked here.
    [[nodiscard]] virtual bool isContiguous() const = 0;
    /// Name of a screen for the user; for the client, not asked here.
    [[nodiscard]] virtual QString screenName(int screen) const = 0;
    /// The widget in which a screen's viewers live, their parent; for the client, not asked here.
    [[nodiscard]] virtual QWidget *screenWidget(int screen) const = 0;
    /// The geometry, in the child's parent, that a normalized box gives for a child.
    [[nodiscard]] virtual QRect childRect(const QWidget *widget, const McBox2f &box) const = 0;
    /// Brings a screen's window to the front; for the client, not asked here.
    virtual void raiseScreen(int screen) = 0;

    // Children.

    /// Adds a widget, or resets its entry: normal placement @p box, not full screen. Then
    /// reconfigures.
    void addWidget(QWidget *widget, const McBox2f &box);
    void addWidget(ExBaseViewer *viewer, const McBox2f &box);
    /// Takes a widget out. No relayout, no notification.
    void removeWidget(QWidget *widget);
    void removeWidget(ExBaseViewer *viewer);
    /// Takes all widgets out. No relayout, no notification.
    void removeAllWidgets();
    [[nodiscard]] int numWidgets() const;

    void setChildGeometry(ExBaseViewer *viewer, const McBox2f &box);
    /// Gives the normal placement, also of a child that is full screen. False leaves @p box as it
    /// is.
    bool getChildGeometry(QWidget *widget, McBox2f &box) const;
    bool getChildGeometry(ExBaseViewer *viewer, McBox2f &box) const;
    /// Gives the rectangle that childRect() has for the placement in force. False leaves @p rect as
    /// it is.
    bool getChildWindowRect(ExBaseViewer *viewer, QRect &rect) const;

    void setReconfigureEnabled(bool enabled);
    [[nodiscard]] bool isReconfigureEnabled() const;

    // Screens and children.

    /// The box of the columns @p first to @p last, full height.
    [[nodiscard]] McBox2f normalizedScreenGeometry(int first, int last) const;
    /// The screen that contains the widget's top-left corner; 0 for any widget when there is only
    /// one screen.
    [[nodiscard]] int screenIndex(QWidget *widget) const;
    [[nodiscard]] int screenIndex(ExBaseViewer *viewer) const;
    /// The range of columns into which the child's normal placement reaches by more than a
    /// hundredth of the work area; -1 and -1 when there is none.
    void overlappingScreens(QWidget *widget, int &first, int &last) const;
    /// The children whose overlapping range lies wholly inside @p first to @p last.
    [[nodiscard]] QList<QWidget *> coveredWidgets(int first, int last) const;

    // Full screen.

    [[nodiscard]] bool isFullscreen(QWidget *widget) const;
    [[nodiscard]] bool isFullscreen(const ExBaseViewer *viewer) const;
    /// Switches between normal and full-screen placement, which covers the columns that the normal
    /// one overlaps. True when that changed something: then call reconfigure(), no geometry is set
    /// here.
    bool setFullscreen(QWidget *widget, bool on);
    bool setFullscreen(ExBaseViewer *viewer, bool on);
    /// The first child that is full screen and overlaps the screen.
    [[nodiscard]] QWidget *fullscreenWidget(int screen) const;

    /// Number of visible children on the viewer's screen, itself included. For a null viewer those
    /// that are on no screen, or, with one screen, all.
    [[nodiscard]] int numViewersOnSameScreen(ExBaseViewer *viewer) const;

    /// Maps the placements of the children that the columns @p first to @p last cover from their
    /// common box into these columns: the common box comes to stand at the columns' top-left
    /// corner, with @p sx of their width and @p sy of their height. Viewers that keep their
    /// placement are left out. Geometry follows at the next reconfigure().
    void scaleWidgets(int first, int last, float sx, float sy);

protected:
    /// Appends every child, in the order in which children are kept (by pointer value).
    void childWidgets(QList<QWidget *> &widgets) const;

private:
    [[nodiscard]] int numColumns() const;

    std::shared_ptr<ExScreenPrivate> d;
};
