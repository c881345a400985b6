#pragma once

#include "client/data/LoadedSeries.h"
#include "platform/util/McHandle.h"

/// A complete series of one volume as large as a CT of the abdomen, 512 x 512 x 150 values of 16
/// bits, for measuring.
McHandle<LoadedSeries> makeBenchmarkSeries();
