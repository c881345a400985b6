#pragma once

#include "client/measurements/Measurement.h"
#include "client/viewers/SliceViewer.h"

/// A complete measurement on what a viewer shows.
inline Measurement drawn(
    Measurement::Kind kind, const SliceViewer &viewer, const std::vector<McVec3d> &points)
{
    Measurement measurement;
    measurement.kind = kind;
    measurement.plane = viewer.shownSlice();
    measurement.seriesUid = viewer.series()->uid();
    measurement.frameOfReference = viewer.series()->info().frameOfReference;
    measurement.points = points;
    measurement.isComplete = true;
    return measurement;
}
