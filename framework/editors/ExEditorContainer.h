#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QList>
#include <QPointer>
#include <QTabWidget>

class ExEditor;
class ExEditorRegion;

/// The tabs of one sub-region of an editor region, one for each editor in it. Made and owned by the
/// region, through which editors are added and removed. Tabs can be moved by dragging them, also to
/// other sub-regions, or out of all of them to have the editor float; Escape ends that. GUI thread
/// only.
class MOVARA_FRAMEWORK_EXPORT ExEditorContainer : public QTabWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ExEditorContainer)

public:
    ~ExEditorContainer() override;

    [[nodiscard]] ExEditorRegion &region() const { return m_region; }
    /// Its place in the region, from 0; -1 once it is no longer part of it.
    [[nodiscard]] int subRegionIndex() const;
    /// Whether the editor may stand here: it has a widget, and the region has nothing against it.
    [[nodiscard]] bool acceptsEditor(const ExEditor *editor) const;
    /// The editor in front; null when there is none.
    [[nodiscard]] ExEditor *currentEditor() const;
    /// Brings an editor to the front. One that belongs here, but floats or was taken out, comes
    /// back for that; others are ignored.
    void setCurrentEditor(ExEditor *editor);
    /// Takes the editor's widget out of the tabs, hidden and without a parent, and gives it. The
    /// editor keeps its place. One that is not here only gives its widget.
    QWidget *takeWidget(ExEditor *editor);
    /// Whether the editor has a tab here.
    [[nodiscard]] bool contains(const ExEditor *editor) const;
    /// The editors in the order of their tabs.
    [[nodiscard]] QList<ExEditor *> editors() const;

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void tabInserted(int index) override;
    void tabRemoved(int index) override;
    void paintEvent(QPaintEvent *event) override;

private:
    friend class ExEditorRegion;
    explicit ExEditorContainer(ExEditorRegion &region);

    void insert(ExEditor &editor, int position);
    void move(const ExEditor &editor, int position);
    QWidget *takeOut(const ExEditor &editor);
    void announceCurrent();
    [[nodiscard]] int indexOfEditor(const ExEditor *editor) const;
    void startDrag(int index, const QPoint &position);
    void showOptions(int index, const QPoint &position);

    ExEditorRegion &m_region;
    /// One for each tab; null for tabs of others.
    QList<QPointer<ExEditor>> m_editors;
    QPointer<ExEditor> m_incoming;
    /// The one that was told last to be in front.
    QPointer<ExEditor> m_announced;
    /// Pixels along the stacking that it had when its last editor left; -1 before.
    int m_extent = -1;
    bool m_isChanging = false;
};
