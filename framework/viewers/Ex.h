#pragma once

/// Small types that all viewers share.
namespace Ex {

/// Kind of a viewer, a number that the viewer implementations give out. 0 is no kind: where a
/// viewer type filters a search, it means no restriction.
enum ViewerType : int { ANY_VIEWER_TYPE = 0 };

/// Anatomical orientation of a 2D view.
enum View : int {
    VIEW_SAGITTAL = 0, ///< image axes are head-foot and anterior-posterior
    VIEW_CORONAL = 1, ///< image axes are head-foot and left-right
    VIEW_AXIAL = 2 ///< no head-foot axis in the image
};

/// How a tool bar is first shown. The bar only keeps it: the client reads it when it places its
/// bars for a user who has not placed them yet.
enum ToolBarState : int {
    TOOL_BAR_HIDDEN = 0, ///< not shown until the user asks for it
    TOOL_BAR_FLOATING = 1, ///< in a window of its own
    TOOL_BAR_DOCKED = 2 ///< in one of the window's tool bar areas
};

} // namespace Ex
