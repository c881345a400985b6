#pragma once

class QWidget;

/// The hidden widget that owns the actions of tools, from the first action to the end of the
/// toolkit's application object. Null when that has ended.
QWidget *actionHost();
