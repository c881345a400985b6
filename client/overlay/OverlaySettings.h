#pragma once

/// What all viewers show over their images or leave out. Notifies GLOBAL_TOGGLE_CHANGED on change.
/// GUI thread only.
namespace OverlaySettings {

[[nodiscard]] bool referenceLines();
void setReferenceLines(bool shown);
/// Texts in the corners; letters, scale bar and frames stay.
[[nodiscard]] bool cornerTexts();
void setCornerTexts(bool shown);

} // namespace OverlaySettings
