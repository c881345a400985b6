#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QByteArray>
#include <QList>
#include <QWidget>

#include <memory>

class ExEditor;
class ExEditorContainer;
class QAction;
class QMenu;
class QSplitter;
struct RegionLayout;

/// A part of a window that holds editors: sub-regions beside or above each other with splitter
/// handles between them, each with its editors as tabs. Users move editors between the sub-regions
/// of all regions, let them float, close and show them again. A sub-region without an editor is
/// hidden, except while an editor is dragged. The window owns the region; when it goes, its editors
/// live on without a place. Across its stacking the region's minimum size follows its editors. GUI
/// thread only.
class MOVARA_FRAMEWORK_EXPORT ExEditorRegion : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ExEditorRegion)

public:
    /// @param stacking direction in which the sub-regions follow each other. @param subRegions how
    /// many there are, at least one.
    explicit ExEditorRegion(
        Qt::Orientation stacking, int subRegions = 1, QWidget *parent = nullptr);
    /// The widgets of its editors are left without a parent, not destroyed.
    ~ExEditorRegion() override;

    /// All regions there are, in the order in which they were made.
    static const QList<ExEditorRegion *> &regions();

    [[nodiscard]] Qt::Orientation stacking() const;
    [[nodiscard]] int subRegionCount() const;
    /// Adds sub-regions at the end or removes them there; 1 to 64. The editors of those that go
    /// belong to the last one then.
    void setSubRegionCount(int count);
    /// What users read, e.g. "Left, above"; "Area 1" and so on until it is set.
    [[nodiscard]] QString subRegionTitle(int subRegion) const;
    void setSubRegionTitle(int subRegion, const QString &title);
    /// The tabs of a sub-region; null for an index out of range.
    [[nodiscard]] ExEditorContainer *editorContainer(int subRegion) const;
    /// The tabs that are seen at a position in the region; null for none.
    [[nodiscard]] ExEditorContainer *containerAt(const QPoint &position) const;
    [[nodiscard]] int indexOf(const ExEditorContainer *container) const;

    /// Whether an editor may be put into a sub-region. The base allows all; the editor must have a
    /// widget besides.
    [[nodiscard]] virtual bool acceptsEditor(const ExEditor &editor, int subRegion) const;

    /// Docks an editor as the last tab, and takes it from where it is. One that has a tab there
    /// stays as it is. False for null, an index out of range, and where it is not accepted.
    bool addEditor(ExEditor *editor, int subRegion);
    /// The same at a position among the tabs, 0 to their count; -1 for the end. Moves an editor
    /// that has a tab there already.
    bool insertEditor(ExEditor *editor, int subRegion, int position);
    /// Takes an editor's tab away. It keeps its place in the region for when it comes back; one
    /// that was closed gets it back. False when it is neither docked nor closed here.
    bool removeEditor(ExEditor *editor, int subRegion);
    /// Brings an editor in front of its tabs; false when it is not docked there.
    bool activateEditor(ExEditor *editor, int subRegion);
    /// Closes an editor that belongs here: it is disabled until it is shown again. False for
    /// others.
    bool closeEditor(ExEditor *editor);
    /// Docks and activates an editor that was closed, in its old place. False for others.
    bool showEditor(ExEditor *editor);
    /// The closed ones, in the order in which they were closed.
    [[nodiscard]] QList<ExEditor *> closedEditors() const;

    /// Whether the region itself is hidden while none of its sub-regions is shown; false at first.
    void setHiddenWhenEmpty(bool hidden);

    /// Which editors, by name, are in which sub-region in which order and in front, the sizes of
    /// the sub-regions, what is closed and what floats where. Text of a versioned form, for
    /// settings.
    [[nodiscard]] QByteArray saveLayout() const;
    /// Takes a saved layout over. Editors are made where needed; those that are not known or not
    /// allowed are left out, and those of this region that the layout does not name stay in their
    /// sub-regions behind the others. False, nothing changed, for data that is damaged or of
    /// another version.
    bool restoreLayout(const QByteArray &layout);

Q_SIGNALS:
    /// An editor got a tab in a sub-region.
    void editorAdded(ExEditor *editor, int subRegion);
    /// An editor's tab is gone. The editor may be about to be destroyed.
    void editorRemoved(ExEditor *editor, int subRegion);
    /// Another editor is in front of its tabs.
    void editorActivated(ExEditor *editor, int subRegion);
    /// The region has got another minimum size across its stacking.
    void minimumSizeChanged(ExEditorRegion *region);
    /// The options of the editor in front of a sub-region are about to be shown; receivers add
    /// theirs.
    void aboutToShowOptions(ExEditorRegion *region, int subRegion, QMenu *menu);
    /// The user has chosen an option that a receiver has added.
    void optionActivated(ExEditorRegion *region, int subRegion, QAction *action);

protected:
    bool event(QEvent *event) override;

private:
    friend class EditorDrag;
    friend class ExEditor;
    friend class ExEditorContainer;

    static void setDragging(bool dragging);
    void showPlacesToDrop(bool show);
    [[nodiscard]] int usualExtent(int subRegion) const;
    void makeRoom(int subRegion);

    // What editors and their tabs tell.
    void addMember(ExEditor &editor);
    void removeMember(ExEditor &editor);
    void widgetLeft(ExEditor &editor, ExEditorContainer &container);
    void showOptions(int subRegion, const QPoint &position);

    [[nodiscard]] ExEditorContainer *containerOf(const ExEditor &editor) const;
    void appendContainer();
    void removeLastContainer();
    bool takeOut(ExEditor &editor);
    void retire(ExEditor &editor, int subRegion);
    bool takeFromClosed(ExEditor &editor);
    void contentChanged();
    void updateVisibility();
    void updateMinimum();
    [[nodiscard]] ExEditor *editorNamed(const QString &name) const;
    void restoreDocked(const RegionLayout &layout);
    void restoreOthers(const RegionLayout &layout);
    void restoreSizes(const RegionLayout &layout);

    class Private;
    std::unique_ptr<Private> d;
};
