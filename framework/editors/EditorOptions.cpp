#include "framework/editors/EditorOptions.h"

#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"

#include <QMenu>

namespace {

QString placeName(const ExEditorRegion &region, int subRegion, bool withRegion)
{
    const QString title = region.subRegionTitle(subRegion);
    const QString regionTitle
        = region.windowTitle().isEmpty() ? region.objectName() : region.windowTitle();
    return withRegion && !regionTitle.isEmpty() ? QString(regionTitle % u": " % title) : title;
}

void addPlaces(QMenu &menu, const ExEditorRegion &present, ExEditor &editor)
{
    for (ExEditorRegion *other : ExEditorRegion::regions()) {
        for (int i = 0; i < other->subRegionCount(); ++i) {
            const ExEditorContainer *const place = other->editorContainer(i);
            if (place->contains(&editor) || !place->acceptsEditor(&editor)) {
                continue;
            }
            QAction *const entry = menu.addAction(
                placeName(*other, i, other != &present), other, [other, i, &editor] {
                    if (other->addEditor(&editor, i)) {
                        other->activateEditor(&editor, i);
                    }
                });
            QObject::connect(&editor, &QObject::destroyed, entry, [entry] { delete entry; });
        }
    }
    menu.setEnabled(!menu.isEmpty());
}

void addClosed(QMenu &menu, ExEditorRegion &region)
{
    const QList<ExEditor *> closed = region.closedEditors();
    for (ExEditor *editor : closed) {
        menu.addAction(EditorOptions::titleOf(*editor), editor,
            [&region, editor] { region.showEditor(editor); });
    }
    menu.setEnabled(!closed.isEmpty());
}

} // namespace

QString EditorOptions::titleOf(const ExEditor &editor)
{
    const QString title = editor.windowTitle();
    return title.isEmpty() ? editor.name() : title;
}

/// Entries are not heard any more once their editors are gone; the region outlives the menu, which
/// it owns.
QMenu *EditorOptions::makeMenu(ExEditorRegion &region, int subRegion)
{
    auto *const menu = new QMenu(&region);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (ExEditor *const current = region.editorContainer(subRegion)->currentEditor()) {
        menu->addAction(ExEditorRegion::tr("&Float"), current, [current] { current->show(true); });
        addPlaces(*menu->addMenu(ExEditorRegion::tr("&Move to")), region, *current);
        menu->addAction(ExEditorRegion::tr("&Close"), current,
            [&region, current] { region.closeEditor(current); });
    }
    addClosed(*menu->addMenu(ExEditorRegion::tr("&Show")), region);
    return menu;
}
