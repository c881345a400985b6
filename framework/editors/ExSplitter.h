#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QSplitter>

#include <memory>

class SplitterHandle;

/// Splitter for panels. Its outer handles carry a button that collapses the first or the last pane
/// to nothing and brings it back to the size it had. The panes are resized when a handle is
/// released. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExSplitter : public QSplitter
{
    Q_OBJECT

public:
    /// A pane that can be collapsed; any value but DockFirst means the last one.
    enum Dock { DockFirst = 0, DockLast = 1 };

    /// @param name becomes the object name; may be null.
    explicit ExSplitter(
        Qt::Orientation orientation, QWidget *parent = nullptr, const char *name = nullptr);
    ~ExSplitter() override;

    using QSplitter::isCollapsible;
    /// Whether that pane may be collapsed; false when there are no panes.
    [[nodiscard]] bool isCollapsible(Dock dock) const;
    /// Whether that pane has no size now; true with fewer than two panes.
    [[nodiscard]] bool isCollapsed(Dock dock) const;
    /// Sets the sizes of the panes, in pixels along the orientation, and with them the sizes that
    /// collapsed panes come back to.
    void setSizes(const QList<int> &sizes);
    /// Turns the splitter, and its buttons with it.
    void setOrientation(Qt::Orientation orientation);

public Q_SLOTS:
    /// Collapses that pane, or brings it back to the size that updateHandles() has last remembered,
    /// at least its minimum. Does nothing with fewer than two panes or when the pane is not
    /// collapsible.
    void toggle(ExSplitter::Dock dock);
    /// Remembers the sizes of the first and the last pane, unless they are collapsed, and brings
    /// the buttons up to date. Happens after each move of a handle and each setSizes(); sizes that
    /// panes get otherwise, as when the window is resized, are not the user's.
    void updateHandles();
    /// Gives the buttons the colours of the current style.
    void paletteChanged();

protected:
    QSplitterHandle *createHandle() override;
    bool event(QEvent *event) override;

private:
    friend class SplitterHandle;
    class Private;

    /// Toggles the pane that the handle's button stands for.
    void toggleBy(const SplitterHandle &handle);
    void move(Dock dock);
    void rememberSizes();
    void updateButtons();
    void updateButton(int index);
    [[nodiscard]] int paneSize(int index) const;
    /// Along the orientation.
    [[nodiscard]] int extent(const QSize &size) const;

    std::unique_ptr<Private> d;
};
