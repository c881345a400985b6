#include "client/geometry/PlaneGeometry.h"
#include "client/viewers/SliceReslicer.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "platform/render/KxEngine.h"
#include "tests/client/support/PhantomSeries.h"

#include <QTest>

#include <cmath>
#include <cstring>

using Grid = PhantomSeries::Grid;

Q_DECLARE_METATYPE(PlaneKind)
Q_DECLARE_METATYPE(PhantomSeries::Grid)

/// What a slice viewer draws: the right place, the right way round, in the right grey.
class tst_SliceViewer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ballIsWhereItBelongs_data();
    void ballIsWhereItBelongs();
    void obliquePlaneGoesThroughBall();
    void greys_data();
    void greys();
    void colors();
    void floats();
    void framesAreDrawnOnlyWhenSomethingChanged();
    void quickFrameIsFollowedByFinalOne();
};

namespace {

/// A viewer of 400 x 300, drawn by the engine.
struct ShownViewer
{
    explicit ShownViewer(PlaneKind plane)
        : viewer(new SliceViewer(plane, &parent))
    {
        viewer->widget()->resize(400, 300);
    }

    void draw() { KxEngine::instance().renderQueue().flush(); }

    QWidget parent;
    McHandle<SliceViewer> viewer;
};

/// The middle of all pixels brighter than the body, in pixels; and how many there are.
struct BrightSpot
{
    QPointF middle;
    int count = 0;
};

BrightSpot brightSpot(const QImage &image)
{
    BrightSpot spot;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) > 200) {
                spot.middle += QPointF(x + 0.5, y + 0.5);
                ++spot.count;
            }
        }
    }
    spot.middle /= std::max(spot.count, 1);
    return spot;
}

} // namespace

void tst_SliceViewer::ballIsWhereItBelongs_data()
{
    QTest::addColumn<Grid>("grid");
    QTest::addColumn<PlaneKind>("plane");
    QTest::addColumn<QPointF>("offset"); // mm from the middle of the picture, by the ball's place
    const std::pair<const char *, Grid> grids[]{{"axial", Grid::Axial},
        {"axial from head", Grid::AxialFromHead}, {"sagittal", Grid::Sagittal},
        {"coronal", Grid::Coronal}, {"tilted", Grid::Tilted}, {"oblique", Grid::Oblique}};
    for (const auto &[name, grid] : grids) {
        // The ball is 30 mm to the left, 20 mm to the front and 24 mm to the head of the middle.
        QTest::addRow("%s images, axial view", name)
            << grid << PlaneKind::Axial << QPointF(30, -20);
        QTest::addRow("%s images, sagittal view", name)
            << grid << PlaneKind::Sagittal << QPointF(-20, -24);
        QTest::addRow("%s images, coronal view", name)
            << grid << PlaneKind::Coronal << QPointF(30, -24);
    }
}

void tst_SliceViewer::ballIsWhereItBelongs()
{
    QFETCH(Grid, grid);
    QFETCH(PlaneKind, plane);
    QFETCH(QPointF, offset);
    ShownViewer shown(plane);
    shown.viewer->setSeries(PhantomSeries::make(grid));
    shown.viewer->scrollTo(PhantomSeries::ball);
    shown.draw();
    const double pixelsPerMm = shown.viewer->zoom();
    QCOMPARE(shown.viewer->widget()->frame().size(), QSize(400, 300));
    const BrightSpot spot = brightSpot(shown.viewer->widget()->frame());
    const QPointF expected = QPointF(200, 150) + offset * pixelsPerMm;
    const double away = QLineF(spot.middle, expected).length() / pixelsPerMm;
    QVERIFY2(away < 1.5, qPrintable(QStringLiteral("%1 mm away").arg(away)));
    // A ball of the right size: the scale is the same in both directions.
    const double area = spot.count / (pixelsPerMm * pixelsPerMm);
    const double full = M_PI * PhantomSeries::ballRadius * PhantomSeries::ballRadius;
    QVERIFY2(area > 0.6 * full && area < 1.3 * full, qPrintable(QString::number(area / full)));
}

void tst_SliceViewer::obliquePlaneGoesThroughBall()
{
    ShownViewer shown(PlaneKind::Axial);
    shown.viewer->setSeries(PhantomSeries::make(Grid::Axial));
    // Turned about the line from right to left, the plane rises to the front by the ball's height.
    const double angle = std::atan2(24, 20);
    shown.viewer->rotate({1, 0, 0}, -angle);
    QCOMPARE(shown.viewer->plane(), PlaneKind::Oblique);
    shown.viewer->scrollTo(PhantomSeries::ball);
    shown.draw();
    const BrightSpot spot = brightSpot(shown.viewer->widget()->frame());
    const QPointF expected
        = QPointF(200, 150) + QPointF(30, -std::hypot(20.0, 24.0)) * shown.viewer->zoom();
    const double away = QLineF(spot.middle, expected).length() / shown.viewer->zoom();
    QVERIFY2(spot.count > 0 && away < 2, qPrintable(QStringLiteral("%1 mm away").arg(away)));
}

void tst_SliceViewer::greys_data()
{
    QTest::addColumn<double>("center");
    QTest::addColumn<double>("width");
    QTest::addColumn<int>("grey");
    QTest::newRow("the body in the middle") << 0.0 << 400.0 << 128;
    QTest::newRow("at a quarter") << 100.0 << 400.0 << 64;
    QTest::newRow("below the window") << 500.0 << 400.0 << 0;
    QTest::newRow("above the window") << -500.0 << 400.0 << 255;
    QTest::newRow("the narrowest window") << -1.0 << 0.0 << 255;
}

void tst_SliceViewer::greys()
{
    QFETCH(double, center);
    QFETCH(double, width);
    ShownViewer shown(PlaneKind::Axial);
    shown.viewer->setSeries(PhantomSeries::make(Grid::Axial));
    shown.viewer->setWindow({center, width});
    shown.draw();
    const QImage frame = shown.viewer->widget()->frame();
    QTEST(qGray(frame.pixel(200, 150)), "grey");
    QCOMPARE(qGray(frame.pixel(1, 1)), 0); // Outside the volume it is black in every window.
}

void tst_SliceViewer::colors()
{
    const McHandle<KxVolume> volume(new KxVolume({2, 2, 1}, KxVolume::ScalarType::UInt8, 3));
    const std::array<std::uint8_t, 12> pixels{255, 0, 0, 0, 255, 0, 0, 0, 255, 9, 8, 7};
    std::memcpy(volume->slice(0), pixels.data(), pixels.size());
    SliceReslicer reslicer;
    reslicer.setVolume(volume);
    reslicer.cut({{0.5, 0.5, 0}, {1, 0, 0}, {0, 1, 0}}, 1, {2, 2});
    const QImage image = reslicer.image({128, 256}, false);
    QCOMPARE(image.pixel(0, 0), qRgb(255, 0, 0));
    QCOMPARE(image.pixel(1, 0), qRgb(0, 255, 0));
    QCOMPARE(image.pixel(0, 1), qRgb(0, 0, 255));
    QCOMPARE(image.pixel(1, 1), qRgb(9, 8, 7));
}

void tst_SliceViewer::floats()
{
    const McHandle<KxVolume> volume
        = PhantomSeries::makeVolume(Grid::Axial, KxVolume::ScalarType::Float32, 0.5);
    SliceReslicer reslicer;
    reslicer.setVolume(volume);
    reslicer.cut({PhantomSeries::middle, {1, 0, 0}, {0, 1, 0}}, 1, {301, 301});
    // 0.5 is a quarter of the way from 0 to 2.
    const QImage image = reslicer.image({1, 2}, false);
    QCOMPARE(qGray(image.pixel(150, 150)), 64);
    QCOMPARE(qGray(image.pixel(0, 0)), 0);
}

void tst_SliceViewer::framesAreDrawnOnlyWhenSomethingChanged()
{
    ShownViewer shown(PlaneKind::Axial);
    shown.viewer->setSeries(PhantomSeries::make(Grid::Axial));
    shown.draw();
    const qint64 first = shown.viewer->widget()->frame().cacheKey();
    shown.viewer->requestRender();
    shown.draw();
    QCOMPARE(shown.viewer->widget()->frame().cacheKey(), first);
    shown.viewer->setSliceIndex(shown.viewer->sliceIndex()); // no change
    QVERIFY(!KxEngine::instance().renderQueue().isRequested(shown.viewer.get()));
    shown.viewer->setWindow({10, 20});
    shown.draw();
    QVERIFY(shown.viewer->widget()->frame().cacheKey() != first);
}

void tst_SliceViewer::quickFrameIsFollowedByFinalOne()
{
    ShownViewer shown(PlaneKind::Axial);
    shown.viewer->setSeries(PhantomSeries::make(Grid::Axial));
    shown.viewer->setSliceIndex(3);
    shown.draw();
    QVERIFY(!shown.viewer->isSettled());
    QTRY_VERIFY(shown.viewer->isSettled());
    QVERIFY(shown.viewer->isFinal());
    QCOMPARE(shown.viewer->widget()->frame().size(), QSize(400, 300));
    QCOMPARE(shown.viewer->widget()->property("squish_isFinalImage"), QVariant(true));
}

QTEST_MAIN(tst_SliceViewer)
#include "tst_SliceViewer.moc"
