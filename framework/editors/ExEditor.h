#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExDelayedInitializer.h"
#include "platform/util/McBox2f.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QStringList>

#include <memory>

class ExEditorContainer;
class ExEditorRegion;
class ExSerializable;
class QPoint;
class QWidget;
struct ExHangingProtocol;

/// A named side panel. Around the panel's widget it keeps where the panel is docked, or the window
/// in which it floats. Made once by the factory registered under its name, and lives for the
/// process; regions, windows and even its widget may die before it. The widget belongs to whoever
/// made it: it is a child of the region or floating window while it is shown there, and has no
/// parent in between. GUI thread only. Nothing is reported: what is missing gives null, false or 0.
class MOVARA_FRAMEWORK_EXPORT ExEditor : public QObject, public ExDelayedInitializer<ExEditor>
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ExEditor)

public:
    using Factory = ExEditor *(*)();

    /// What a panel's widget may also be, to say itself which display protocols the panel is for.
    class MOVARA_FRAMEWORK_EXPORT ExSupportInterface
    {
    public:
        ExSupportInterface() = default;
        ExSupportInterface(const ExSupportInterface &) = delete;
        ExSupportInterface &operator=(const ExSupportInterface &) = delete;
        virtual ~ExSupportInterface();
        [[nodiscard]] virtual bool supports(const ExHangingProtocol *protocol) const = 0;
    };

    /// What a panel may supply to arrange its content by the place that it is in. Order of the
    /// operations is relied on.
    class MOVARA_FRAMEWORK_EXPORT Layout
    {
    public:
        Layout() = default;
        Layout(const Layout &) = delete;
        Layout &operator=(const Layout &) = delete;
        virtual ~Layout();
        /// The panel has been docked in a region that stacks its editors in this direction. The
        /// base does nothing.
        virtual void setStacking(Qt::Orientation stacking);
        /// The widget is about to move into a window of its own.
        virtual void update() = 0;
    };

    /// @param widget the panel; not owned, may be null. Its context menu becomes the editor's.
    /// @param name the widget's object name; null leaves it as it is.
    explicit ExEditor(QWidget *widget, const char *name = nullptr);
    /// Leaves region and window; the widget stays, without a parent.
    ~ExEditor() override;

    /// The panel's widget as a part of the session; null when it is none.
    [[nodiscard]] virtual ExSerializable *serializable() const;
    /// The panel's arrangement; null, as in the base, for none.
    [[nodiscard]] virtual Layout *layout() const;
    /// The widget that stands for the panel on a monitor. The base has one for all.
    [[nodiscard]] virtual QWidget *widgetForMonitor(int monitor) const;
    /// Takes the widget out of where it is docked. Null without a widget.
    virtual QWidget *takeWidget();

    /// Sets what makes the editor of this name on demand; null and empty names are ignored. An
    /// editor that was made under the name is forgotten, but lives on.
    static void registerEditor(const char *name, Factory factory);
    /// The editor of this name, made on first use; null when there is none, or the user has no
    /// right to it. A factory that gives null is asked again next time.
    static ExEditor *getEditor(const char *name);
    /// Fills @p names with those of all registered editors that the user has the right to,
    /// ascending.
    static void getEditorList(QStringList &names);
    /// The start-up callbacks of editors.
    static QList<void (*)()> &initCallbackList();

    /// The name under which it is registered.
    [[nodiscard]] QString name() const { return objectName(); }
    /// The window title of the widget; empty without one.
    [[nodiscard]] QString windowTitle() const;
    /// The region that the editor belongs to, also while it floats; null for none.
    [[nodiscard]] ExEditorRegion *editorRegion() const;
    /// Its place in the region, from 0; -1 for none.
    [[nodiscard]] int subRegionIndex() const;
    /// The tabs that it belongs in; null without a place.
    [[nodiscard]] ExEditorContainer *editorContainer() const;
    /// Whether it has no place in a region.
    [[nodiscard]] bool isDisabled() const;
    [[nodiscard]] bool isFloating() const;
    /// The floating window; null while it does not float.
    [[nodiscard]] QWidget *floater() const;

    /// Where the floating window is put, in pixels of the desktop without the frame; an invalid one
    /// leaves it to the relative geometry. Follows what the user does to the window.
    void setAbsoluteFloatingGeometry(const QRect &geometry);
    /// Where the floating window is put while there is no absolute geometry, which this takes away.
    /// In fractions of the available area of the screen that the application's dialog parent is on,
    /// y downwards; (0, 0, 1, 1) fills it. The window gets at least the widget's minimum size and
    /// is kept on that screen. While this is empty too, the window stands in the screen's middle,
    /// in the size that the widget has.
    void setRelativeFloatingGeometry(const McBox2f &geometry);
    /// What supports() says of a panel whose widget does not say so itself.
    void setSupportedFlag(bool supported);
    /// Whether the panel is for this display protocol, and for this user.
    [[nodiscard]] bool supports(const ExHangingProtocol *protocol) const;
    /// The room in pixels that the panel needs across the direction in which its region stacks
    /// editors: for Qt::Horizontal the height of its minimum size hint, for Qt::Vertical the width.
    [[nodiscard]] int minimumSize(Qt::Orientation stacking) const;

    /// Brings the panel to the user.
    /// @param floating in a window of its own, else in front of its tabs (false when it has no
    /// place there). A panel that floats is docked by show(false).
    bool show(bool floating);
    /// Ends floating. @param close closes the window, and the panel is not seen then. Otherwise the
    /// panel goes back to its region; without one the editor only forgets the window.
    void dockFloater(bool close);
    /// Takes its place away: it belongs to no region. One that floats keeps its window.
    void resetEditorRegion() { setEditorRegion(nullptr, -1); }
    /// Takes it back to where it began: no region, not floating, no absolute geometry.
    void reset();

public Q_SLOTS:
    /// Offers the help for the panel at a position in its widget; waits until the menu closes.
    void slotCustomContextMenuRequested(const QPoint &position);

protected:
    /// Only notes the place; the region's operations change it.
    void setEditorRegion(ExEditorRegion *region, int subRegion);

private:
    friend class ExEditorFloater;
    friend class ExEditorRegion;

    bool activateDocked();
    void floatWidget();
    [[nodiscard]] QSize presentSize() const;
    [[nodiscard]] QRect floatingGeometry(const QSize &widgetSize) const;
    void windowGone(const QWidget *window);

    class Private;
    std::unique_ptr<Private> d;
};
