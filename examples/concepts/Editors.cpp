// What docs/concepts/editors.md and docs/write-an-editor.md show.
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorRegion.h"
#include "framework/editors/ExSplitter.h"

/// Panels to the left of the images. The button on the handle folds them away.
ExEditorRegion *addPanels(ExSplitter &splitter, QWidget *images, const QByteArray &layout)
{
    auto *const region = new ExEditorRegion(Qt::Vertical, 2);
    region->setObjectName(QStringLiteral("Left"));
    region->addEditor(ExEditor::getEditor("Notes"), 0);
    region->restoreLayout(layout);
    splitter.addWidget(region);
    splitter.addWidget(images);
    return region;
}

/// Shows the panel where it is: docked, or in its window. One that is closed, or in no region,
/// floats.
bool showPanel(const char *name)
{
    ExEditor *const editor = ExEditor::getEditor(name);
    // show(false) would dock a panel that floats.
    return editor != nullptr && editor->show(editor->isDisabled() || editor->isFloating());
}
