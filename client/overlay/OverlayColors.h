#pragma once

#include "client/geometry/PlaneKind.h"

#include <QColor>

/// Colours over images. The hues stay apart for people with a colour-vision deficiency.
namespace OverlayColors {

/// The colour that a plane's frame and its reference lines share.
QColor plane(PlaneKind kind);
/// The colour of a measurement. @param number from 0; colours come again after the last one.
QColor measurement(int number);
/// Frame of the active viewer.
QColor accent();
/// Text over images.
QColor text();
/// What is wrong or not final.
QColor warning();
/// Frames of viewers that are not active.
QColor hairline();

} // namespace OverlayColors
