#include "client/measurements/MeasurementList.h"
#include "client/measurements/MeasurementTexts.h"
#include "client/measurements/MeasurementView.h"
#include "client/overlay/ShapePainter.h"
#include "tests/client/support/Drawn.h"
#include "tests/client/support/ShownViewer.h"

#include <QTest>

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

using Grid = PhantomSeries::Grid;
using Kind = Measurement::Kind;

namespace {

/// A box of the plane, so many mm wide and high.
std::vector<McVec3d> boxAround(
    const KxSlice &plane, const McVec3d &middle, double width, double height)
{
    const McVec3d half = plane.right() * (width / 2) + plane.down() * (height / 2);
    return {middle - half, middle + half};
}

/// The ends, in the picture, of what is not air in the middle row.
std::pair<QPointF, QPointF> bodyInMiddleRow(const SliceViewer &viewer)
{
    const QImage &frame = viewer.widget()->frame();
    const int y = frame.height() / 2;
    QList<int> body;
    for (int x = 0; x < frame.width(); ++x) {
        if (qGray(frame.pixel(x, y)) > 64) {
            body += x;
        }
    }
    return {QPointF(body.value(0), y), QPointF(body.value(body.size() - 1) + 1, y)};
}

} // namespace

/// Figures against bodies of known size, and where measurements are seen and picked.
class tst_Measurements : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bodyAndBall()
    {
        const double oblique = 120 / std::cos(0.5);
        // Images, plane, how far it is turned, how wide it cuts the body
        const std::tuple<Grid, PlaneKind, double, double> rows[] = {
            {Grid::Axial, PlaneKind::Axial, 0, 120}, {Grid::Axial, PlaneKind::Sagittal, 0, 90},
            {Grid::Sagittal, PlaneKind::Coronal, 0, 120},
            {Grid::Axial, PlaneKind::Axial, 0.5, oblique},
            {Grid::Oblique, PlaneKind::Axial, 0, 120}, {Grid::Tilted, PlaneKind::Original, 0, 120},
            {Grid::Tilted, PlaneKind::Coronal, 0.5, oblique}};
        for (const auto &[grid, plane, turn, body] : rows) {
            const ShownViewer shown(plane, PhantomSeries::make(grid));
            SliceViewer &viewer = *shown.viewer;
            viewer.rotate(viewer.shownSlice().down(), turn);
            shown.draw();
            const auto [left, right] = bodyInMiddleRow(viewer);
            const Measurement across
                = drawn(Kind::Distance, viewer, {viewer.patientAt(left), viewer.patientAt(right)});
            const double width = MeasurementGeometry::distance(across); // to a voxel
            QVERIFY2(isNear(width, body, 2.6), qPrintable(QString::number(width)));

            viewer.scrollTo(PhantomSeries::ball);
            const KxSlice &slice = viewer.shownSlice();
            const double off = slice.distance(PhantomSeries::ball);
            const McVec3d middle = PhantomSeries::ball - slice.normal() * off;
            const Measurement ball = drawn(Kind::Ellipse, viewer, boxAround(slice, middle, 7, 6));
            QVERIFY(isNear(*MeasurementGeometry::area(ball), std::numbers::pi * 7 * 6 / 4, 1e-9));
            const auto values = RegionStatistics::of(ball, *viewer.volume(0));
            QVERIFY(values && values->count > 5);
            QVERIFY2(isNear(values->mean, 1000, 0.5), qPrintable(QString::number(values->mean)));
            QVERIFY(isNear(values->deviation, 0, 0.5));
            // Far around it: what of the ball is in the area, and what surrounds it.
            const Measurement box
                = drawn(Kind::Rectangle, viewer, boxAround(slice, middle, 24, 24));
            const auto wide = RegionStatistics::of(box, *viewer.volume(0));
            const double disc = std::numbers::pi * (36 - off * off) / (24 * 24);
            QVERIFY2(isNear(wide->mean, 1000 * disc, 60), qPrintable(QString::number(wide->mean)));
            QCOMPARE(wide->minimum, 0.0);
            QCOMPARE(wide->maximum, 1000.0);
        }
    }

    void angles()
    {
        const ShownViewer shown(PlaneKind::Coronal, PhantomSeries::make(Grid::Tilted));
        for (const double degrees : {0.01, 60.0, 90.0, 179.9, 180.0}) {
            const double radians = degrees * std::numbers::pi / 180;
            const McVec3d apex = PhantomSeries::middle;
            const Measurement angle = drawn(Kind::Angle, *shown.viewer,
                {apex + McVec3d{30, 0, 0}, apex,
                    apex + McVec3d{std::cos(radians), 0, std::sin(radians)} * 7});
            QVERIFY(isNear(*MeasurementGeometry::angle(angle), degrees, 1e-6));
        }
        const McVec3d point;
        QVERIFY(
            !MeasurementGeometry::angle(drawn(Kind::Angle, *shown.viewer, {point, point, point})));
    }

    void voxelsOfARectangle()
    {
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial));
        SliceViewer &viewer = *shown.viewer;
        // Six columns of voxels before the edge of the body, six behind it, five rows.
        const McVec3d onPlane{72, -34.75, viewer.shownSlice().center().z};
        const Measurement edge
            = drawn(Kind::Rectangle, viewer, boxAround(viewer.shownSlice(), onPlane, 18, 7.5));
        const auto values = RegionStatistics::of(edge, *viewer.volume(0));
        QVERIFY(values && values->areVoxels);
        QCOMPARE(values->count, 60);
        QCOMPARE(values->minimum, -1000.0);
        QCOMPARE(values->maximum, 0.0);
        QCOMPARE(values->mean, -500.0);
        QCOMPARE(values->deviation, 500.0);
        QVERIFY(isNear(*MeasurementGeometry::area(edge), 135, 1e-9));
        const Measurement outside = MeasurementGeometry::moved(edge, {500, 0, 0});
        QVERIFY(!RegionStatistics::of(outside, *viewer.volume(0)));
    }

    void anisotropicSamples()
    {
        // Values rise by 10 for every mm in x, by 1 for every mm in z; voxels of 0.5 x 2 x 3 mm.
        const McHandle<KxVolume> volume(new KxVolume({40, 10, 8}, KxVolume::ScalarType::Int16));
        volume->setVoxelToPatient({{0.5, 0, 0}, {0, 2, 0}, {0, 0, 3}, {}});
        for (int z = 0; z < 8; ++z) {
            auto *const values = reinterpret_cast<std::int16_t *>(volume->slice(z));
            for (int i = 0; i < 400; ++i) {
                values[i] = static_cast<std::int16_t>(5 * (i % 40) + 3 * z);
            }
        }
        Measurement region;
        region.kind = Kind::Ellipse;
        const double half = std::numbers::sqrt2 / 2;
        region.plane = KxSlice({10, 9, 10}, {half, 0, half}, {0, 1, 0}); // across the grid
        region.points = boxAround(region.plane, {10.5, 9, 10.5}, 8, 10);
        const auto values = RegionStatistics::of(region, *volume);
        QVERIFY(values && !values->areVoxels);
        QVERIFY2(isNear(values->mean, 115.5, 0.2), qPrintable(QString::number(values->mean)));
        // A quarter of the diameter is an ellipse's deviation along one axis.
        QVERIFY(isNear(values->deviation, 8 / 4.0 * 11 * half, 0.2));
        QVERIFY(isNear(values->count, 20 * std::numbers::pi / 0.25, 4));
    }

    void polygons()
    {
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial));
        const McVec3d at = shown.viewer->shownSlice().center();
        const auto polygon = [&](const std::vector<QPointF> &corners) {
            std::vector<McVec3d> points;
            for (const QPointF &corner : corners) {
                points.push_back(at + McVec3d{corner.x(), corner.y(), 0});
            }
            return drawn(Kind::Polygon, *shown.viewer, points);
        };
        const Measurement notched = polygon({{0, 0}, {12, 0}, {12, 12}, {6, 3}, {0, 12}});
        QVERIFY(isNear(*MeasurementGeometry::area(notched), 144 - 54, 1e-9));
        const Measurement crossed = polygon({{0, 0}, {12, 12}, {12, 0}, {0, 12}});
        QVERIFY(!MeasurementGeometry::area(crossed));
        QVERIFY(!RegionStatistics::of(crossed, *shown.viewer->volume(0)));
    }

    void seenInItsPlaneOnly()
    {
        MeasurementList list;
        const auto series = PhantomSeries::make(Grid::Axial);
        const ShownViewer axial(PlaneKind::Axial, series);
        const ShownViewer coronal(PlaneKind::Coronal, PhantomSeries::make(Grid::Coronal, "two"));
        const ShownViewer stranger(
            PlaneKind::Axial, PhantomSeries::make(Grid::Axial, "three", 1, "other frame"));
        const McVec3d middle = axial.viewer->shownSlice().center();
        coronal.viewer->scrollTo(middle);
        const McVec3d along{20, 0, 0};
        const McVec3d across{0, 20, 0};
        list.add(drawn(Kind::Distance, *axial.viewer, {middle, middle + along}));
        list.add(drawn(Kind::Distance, *axial.viewer, {middle, middle + across}));
        const auto count = [](const ShownViewer &shown) {
            return MeasurementView::shapes(*shown.viewer).size();
        };
        QCOMPARE(count(axial), 2);
        QCOMPARE(count(coronal), 1); // What lies in its plane, on another series of the same frame.
        QCOMPARE(count(stranger), 0);
        axial.viewer->setSliceIndex(axial.viewer->sliceIndex() + 1);
        QCOMPARE(count(axial), 0);
        axial.viewer->setSliceIndex(axial.viewer->sliceIndex() - 1);
        axial.viewer->rotate({1, 0, 0}, 0.3);
        QCOMPARE(count(axial), 1); // The one along the axis.
    }

    void picked()
    {
        MeasurementList list;
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial));
        SliceViewer &viewer = *shown.viewer;
        const auto at = [&](double x, double y) { return viewer.patientAt({x, y}); };
        const int line = list.add(drawn(Kind::Distance, viewer, {at(100, 100), at(200, 100)}));
        const int box = list.add(drawn(Kind::Rectangle, viewer, {at(150, 80), at(250, 180)}));
        const auto pickAt = [&](double x, double y) {
            const auto pick = MeasurementView::pick(viewer, {x, y});
            return pick ? u"%1/%2/%3"_s.arg(pick->id).arg(pick->handle).arg(pick->distance)
                        : u"none"_s;
        };
        QCOMPARE(pickAt(130, 104), u"1/-1/4"_s);
        QCOMPARE(pickAt(200, 105), u"1/1/5"_s); // The handle, not the line.
        QCOMPARE(pickAt(150, 180), u"2/3/0"_s); // A corner that is no point of it.
        QCOMPARE(pickAt(200, 140), u"none"_s); // Inside.
        QCOMPARE(pickAt(150, 100), u"2/-1/0"_s); // Both are here: the later one,
        list.setPicked(line);
        QCOMPARE(pickAt(150, 100), u"1/-1/0"_s); // or the picked one.
        list.update(
            MeasurementGeometry::withHandleMoved(*list.find(box), 3, at(20, 30) - at(0, 0)));
        QVERIFY((list.find(box)->points[0] - at(170, 80)).length() < 1e-9);
        QVERIFY((list.find(box)->points[1] - at(250, 210)).length() < 1e-9);
        list.remove(line);
        QCOMPARE(list.picked(), 0);
        QCOMPARE(pickAt(130, 104), u"none"_s);
    }

    void regionsFollowThePhase()
    {
        MeasurementList list;
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial, "phases", 2));
        const KxSlice &slice = shown.viewer->shownSlice();
        const int id = list.add(
            drawn(Kind::Rectangle, *shown.viewer, boxAround(slice, slice.center(), 12, 9)));
        const auto text = [&](int phase) {
            return MeasurementTexts::result(*list.find(id), list, *shown.viewer->series(), phase)
                .join(QLatin1Char('|'));
        };
        const QString expected = u"Area 108.0 mm²|Mean %1 ± 0.00 HU|Min %1  Max %1 HU|48 voxels"_s;
        QCOMPARE(text(0), expected.arg(u"0.00"_s));
        QCOMPARE(text(1), expected.arg(u"100.0"_s));
        list.update(MeasurementGeometry::moved(*list.find(id), {60, 0, 0}));
        QVERIFY(text(1).contains(u"Min -900.0"_s));
        QVERIFY(MeasurementTexts::table(list, *shown.viewer->series(), 0)
                    .startsWith(u"Rectangle 1\tArea 108.0 mm²\tMean -"_s));
    }

    void lengthsWithoutMillimetres()
    {
        MeasurementList list;
        const auto series = PhantomSeries::make(Grid::Axial);
        series->images()->volume(0)->setPlacement(KxVolume::Placement::Pixels);
        const ShownViewer shown(PlaneKind::Axial, series);
        const McVec3d at = shown.viewer->shownSlice().center();
        const int id = list.add(drawn(Kind::Distance, *shown.viewer, {at, at + McVec3d{3, 4, 0}}));
        QCOMPARE(
            MeasurementTexts::result(*list.find(id), list, *series, 0), QStringList{u"5.00 px"_s});
    }

    void labelsCoverNothing()
    {
        OverlayContent::Shape shape;
        shape.line = QPolygonF(QRectF(300, 20, 180, 150)); // close to the right edge
        OverlayContent::Shape other = shape;
        other.line = QPolygonF(QVector<QPointF>{{20, 250}, {300, 250}});
        const QVector<OverlayContent::Shape> shapes{shape, other, other};
        const QSize viewer(500, 300);
        const QRectF cornerText(10, 255, 150, 40);
        const auto places = ShapePainter::labelPlaces(
            shapes, QVector<QSizeF>(3, {110, 60}), viewer, {cornerText});
        for (qsizetype i = 0; i < places.size(); ++i) {
            QVERIFY(QRectF(QPointF(), viewer).contains(places[i]));
            QVERIFY(!places[i].intersects(shape.line.boundingRect()));
            QVERIFY(places[i].bottom() < 250 || places[i].top() > 250 || places[i].left() > 300);
            QVERIFY(!places[i].intersects(cornerText));
            QVERIFY(!places[i].intersects(places[(i + 1) % places.size()]));
        }
    }
};

QTEST_MAIN(tst_Measurements)
#include "tst_Measurements.moc"
