#include "client/measurements/MeasurementTexts.h"

#include "client/data/LoadedSeries.h"
#include "client/measurements/MeasurementList.h"

#include <QCoreApplication>
#include <QLocale>

#include <array>

namespace MeasurementTexts {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MeasurementTexts)
};

/// One decimal, more for what is small.
QString number(double value)
{
    constexpr double small = 10;
    return QLocale::c().toString(value, 'f', std::abs(value) < small ? 2 : 1);
}

QString withUnit(double value, const QString &unit)
{
    return unit.isEmpty() ? number(value) : number(value) % QLatin1Char(' ') % unit;
}

QString valueUnit(const LoadedSeries &series, int phase)
{
    return QString::fromStdString(series.images()->volume(phase)->unit());
}

bool isInPixels(const LoadedSeries &series)
{
    return series.placement() == KxVolume::Placement::Pixels;
}

QStringList regionLines(
    const Measurement &region, const MeasurementList &list, const LoadedSeries &series, int phase)
{
    const auto area = MeasurementGeometry::area(region);
    if (!area) {
        return {Texts::tr("the line crosses itself")};
    }
    QStringList lines{Texts::tr("Area %1").arg(
        withUnit(*area, isInPixels(series) ? Texts::tr("px²") : Texts::tr("mm²")))};
    if (const auto values = list.statistics(region, series, phase)) {
        const QString unit = valueUnit(series, phase);
        lines << Texts::tr("Mean %1 ± %2")
                     .arg(number(values->mean), withUnit(values->deviation, unit))
              << Texts::tr("Min %1  Max %2")
                     .arg(number(values->minimum), withUnit(values->maximum, unit))
              << (values->areVoxels ? Texts::tr("%1 voxels") : Texts::tr("%1 samples"))
                     .arg(values->count);
    }
    return lines;
}

QStringList cells(
    const Measurement &each, const MeasurementList &list, const LoadedSeries &series, int phase)
{
    return QStringList{each.name} + result(each, list, series, phase);
}

} // namespace

QString kindName(Measurement::Kind kind)
{
    static constexpr std::array names{QT_TRANSLATE_NOOP("MeasurementTexts", "Distance"),
        QT_TRANSLATE_NOOP("MeasurementTexts", "Angle"),
        QT_TRANSLATE_NOOP("MeasurementTexts", "Ellipse"),
        QT_TRANSLATE_NOOP("MeasurementTexts", "Rectangle"),
        QT_TRANSLATE_NOOP("MeasurementTexts", "Polygon")};
    return Texts::tr(names.at(static_cast<std::size_t>(kind)));
}

QStringList result(const Measurement &measurement, const MeasurementList &list,
    const LoadedSeries &series, int phase)
{
    if (measurement.points.size() < 2) {
        return {};
    }
    switch (measurement.kind) {
    case Measurement::Kind::Distance:
        return {withUnit(MeasurementGeometry::distance(measurement),
            isInPixels(series) ? Texts::tr("px") : Texts::tr("mm"))};
    case Measurement::Kind::Angle: {
        const auto angle = MeasurementGeometry::angle(measurement);
        return angle ? QStringList{QLocale::c().toString(*angle, 'f', 1) % QChar(u'°')}
                     : QStringList();
    }
    case Measurement::Kind::Polygon:
        if (measurement.points.size() < 3) {
            return {};
        }
        break;
    case Measurement::Kind::Ellipse:
    case Measurement::Kind::Rectangle:
        break;
    }
    return regionLines(measurement, list, series, phase);
}

QString table(const MeasurementList &list, const LoadedSeries &series, int phase)
{
    QStringList lines;
    for (const Measurement &each : list.all()) {
        if (each.isComplete && MeasurementGeometry::isOf(each, series)) {
            lines += cells(each, list, series, phase).join(QLatin1Char('\t'));
        }
    }
    return lines.isEmpty() ? QString() : lines.join(QLatin1Char('\n')) % QLatin1Char('\n');
}

} // namespace MeasurementTexts
