#pragma once

#include "framework/input/ExEvent.h"

class QEvent;

/// Fills an event's signal, position and wheel delta from the toolkit's event. An event that is no
/// input, or of a mouse button beyond the fifth (whose values are used by keys), stays without
/// signal.
void fillFromToolkitEvent(ExEvent &event, const QEvent &toolkitEvent);

/// Whether the toolkit's event is one of a key, and so never part of a click.
bool isKeyEvent(const QEvent &toolkitEvent);
