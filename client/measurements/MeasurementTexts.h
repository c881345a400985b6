#pragma once

#include "client/measurements/Measurement.h"

#include <QStringList>

class LoadedSeries;
class MeasurementList;

/// What the user reads of measurements.
namespace MeasurementTexts {

[[nodiscard]] QString kindName(Measurement::Kind kind);
/// The result in lines, as measured on a phase of a series; in pixels where the series has no
/// millimetres. Empty while there are too few points.
[[nodiscard]] QStringList result(const Measurement &measurement, const MeasurementList &list,
    const LoadedSeries &series, int phase);
/// Measurements of a series with their results as a table: lines of cells with tabulators between
/// them, to be pasted into a report or a spreadsheet. Empty without measurements.
[[nodiscard]] QString table(const MeasurementList &list, const LoadedSeries &series, int phase);

} // namespace MeasurementTexts
