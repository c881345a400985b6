#pragma once

class ExModal;
class ExTool;

/// The tools that the user chooses between for the left mouse button: one of them is always on.
/// GUI thread only.
namespace LeftButtonTools {

/// Adds a tool, which is exclusive and driven by the plain left button. It is kept for the rest of
/// the process.
void add(ExModal &tool);
/// To be asked before a tool is switched off. When none of the others is on, the standard one takes
/// over, which switches the tool off, too, or stays if it is the tool.
/// @return whether all is done.
bool replace(ExTool &tool);
/// Switches the standard one on, unless another is on.
void start();

} // namespace LeftButtonTools
