#include "framework/editors/EditorOptions.h"

#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"

#include <QMenu>

namespace {

using EditorPointer = QPointer<ExEditor>;
using RegionPointer = QPointer<ExEditorRegion>;

QString placeName(const ExEditorRegion &region, int subRegion, bool withRegion)
{
    const QString title = region.subRegionTitle(subRegion);
    const QString regionTitle
        = region.windowTitle().isEmpty() ? region.objectName() : region.windowTitle();
    return withRegion && !regionTitle.isEmpty() ? QString(regionTitle % u": " % title) : title;
}

void addPlaces(QMenu &menu, const ExEditorRegion &present, ExEditor &editor)
{
    const EditorPointer moved(&editor);
    for (ExEditorRegion *other : ExEditorRegion::regions()) {
        for (int i = 0; i < other->subRegionCount(); ++i) {
            const ExEditorContainer *const place = other->editorContainer(i);
            if (place->contains(&editor) || !place->acceptsEditor(&editor)) {
                continue;
            }
            menu.addAction(
                placeName(*other, i, other != &present), [moved, i, region = RegionPointer(other)] {
                    if (region != nullptr && region->addEditor(moved, i)) {
                        region->activateEditor(moved, i);
                    }
                });
        }
    }
    menu.setEnabled(!menu.isEmpty());
}

void addClosed(QMenu &menu, ExEditorRegion &region)
{
    const QList<ExEditor *> closed = region.closedEditors();
    for (ExEditor *editor : closed) {
        menu.addAction(EditorOptions::titleOf(*editor), &region,
            [&region, shown = EditorPointer(editor)] { region.showEditor(shown); });
    }
    menu.setEnabled(!closed.isEmpty());
}

} // namespace

QString EditorOptions::titleOf(const ExEditor &editor)
{
    const QString title = editor.windowTitle();
    return title.isEmpty() ? editor.name() : title;
}

QMenu *EditorOptions::makeMenu(ExEditorRegion &region, int subRegion)
{
    auto *const menu = new QMenu(&region);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (ExEditor *const current = region.editorContainer(subRegion)->currentEditor()) {
        const EditorPointer editor(current);
        menu->addAction(ExEditorRegion::tr("&Float"), current, [current] { current->show(true); });
        addPlaces(*menu->addMenu(ExEditorRegion::tr("&Move to")), region, *current);
        menu->addAction(ExEditorRegion::tr("&Close"), &region,
            [&region, editor] { region.closeEditor(editor); });
    }
    addClosed(*menu->addMenu(ExEditorRegion::tr("&Show")), region);
    return menu;
}
