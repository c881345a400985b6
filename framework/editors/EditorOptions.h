#pragma once

class ExEditor;
class ExEditorRegion;
class QMenu;
class QString;

/// What users see of an editor, and can do with it.
namespace EditorOptions {

/// The editor's title, or its name when it has none.
QString titleOf(const ExEditor &editor);
/// The menu of a sub-region: what can be done with the editor in front, and which closed ones can
/// be shown again. Owned by the region, deletes itself when it is closed.
QMenu *makeMenu(ExEditorRegion &region, int subRegion);

}
