#include "client/geometry/PlaneGeometry.h"
#include "client/viewers/SliceReslicer.h"
#include "tests/client/support/ShownViewer.h"
#include "tests/support/Rows.h"

#include <QTest>

#include <cmath>
#include <cstring>
#include <string>

using namespace Qt::StringLiterals;

using Grid = PhantomSeries::Grid;

namespace {

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

/// What a slice viewer draws: the right place, the right way round, in the right grey.
class tst_SliceViewer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ballIsWhereItBelongs_data()
    {
        // offset: mm from the middle of the picture. The ball is 30 mm to the left, 20 mm to the
        // front and 24 mm to the head of the middle.
        const Rows<Grid, PlaneKind, QPointF> row("grid", "plane", "offset");
        const std::pair<const char *, Grid> grids[]{{"axial", Grid::Axial},
            {"axial from head", Grid::AxialFromHead}, {"sagittal", Grid::Sagittal},
            {"coronal", Grid::Coronal}, {"tilted", Grid::Tilted}, {"oblique", Grid::Oblique}};
        for (const auto &[name, grid] : grids) {
            const std::string images = std::string(name) + " images, ";
            row((images + "axial view").c_str(), grid, PlaneKind::Axial, QPointF(30, -20));
            row((images + "sagittal view").c_str(), grid, PlaneKind::Sagittal, QPointF(-20, -24));
            row((images + "coronal view").c_str(), grid, PlaneKind::Coronal, QPointF(30, -24));
        }
    }

    void ballIsWhereItBelongs()
    {
        QFETCH(Grid, grid);
        QFETCH(PlaneKind, plane);
        QFETCH(QPointF, offset);
        const ShownViewer shown(plane, PhantomSeries::make(grid));
        shown.viewer->scrollTo(PhantomSeries::ball);
        shown.draw();
        const double pixelsPerMm = shown.viewer->zoom();
        QCOMPARE(shown.viewer->widget()->frame().size(), ShownViewer::size);
        const BrightSpot spot = brightSpot(shown.viewer->widget()->frame());
        const QPointF expected = QPointF(250, 200) + offset * pixelsPerMm;
        const double away = QLineF(spot.middle, expected).length() / pixelsPerMm;
        QVERIFY2(away < 1.5, qPrintable(u"%1 mm away"_s.arg(away)));
        // A ball of the right size: the scale is the same in both directions.
        const double area = spot.count / (pixelsPerMm * pixelsPerMm);
        const double full = M_PI * PhantomSeries::ballRadius * PhantomSeries::ballRadius;
        QVERIFY2(area > 0.6 * full && area < 1.3 * full, qPrintable(QString::number(area / full)));
    }

    void greys_data()
    {
        const Rows<double, double, int> row("center", "width", "grey");
        row("the body in the middle", 0.0, 400.0, 128);
        row("at a quarter", 100.0, 400.0, 64);
        row("below the window", 500.0, 400.0, 0);
        row("above the window", -500.0, 400.0, 255);
        row("the narrowest window", -1.0, 0.0, 255);
    }

    void greys()
    {
        QFETCH(double, center);
        QFETCH(double, width);
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial));
        shown.viewer->setWindow({center, width});
        shown.draw();
        const QImage frame = shown.viewer->widget()->frame();
        QTEST(qGray(frame.pixel(250, 200)), "grey");
        QCOMPARE(qGray(frame.pixel(1, 1)), 0); // Outside the volume it is black in every window.
    }

    void colors()
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

    void floats()
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

    void framesAreDrawnOnlyWhenSomethingChanged()
    {
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial));
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

    void quickFrameIsFollowedByFinalOne()
    {
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial));
        shown.viewer->setSliceIndex(3);
        shown.draw();
        QVERIFY(!shown.viewer->isSettled());
        QTRY_VERIFY(shown.viewer->isSettled());
        QVERIFY(shown.viewer->isFinal());
        QCOMPARE(shown.viewer->widget()->frame().size(), ShownViewer::size);
        QCOMPARE(shown.viewer->widget()->property("squish_isFinalImage"), QVariant(true));
    }
};

QTEST_MAIN(tst_SliceViewer)
#include "tst_SliceViewer.moc"
