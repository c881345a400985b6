#pragma once

#include "framework/MovaraFrameworkExport.h"

/// Tag of the version that this library was built from: the release number, and what the source
/// control says of the tree (e.g. "0.1.0-gabcdef1"), or the release number alone outside of a
/// checkout. Never null.
MOVARA_FRAMEWORK_EXPORT const char *movaraBuildVersionTag();
