#include "client/viewers/SliceReslicer.h"
#include "tests/client/support/BrightSpot.h"
#include "tests/client/support/ShownViewer.h"

#include <QTest>

#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

using Grid = PhantomSeries::Grid;

/// What a slice viewer draws: the right place, the right way round, in the right grey.
class tst_SliceViewer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ballIsWhereItBelongs()
    {
        // mm from the middle of the picture. The ball is 30 mm to the left, 20 mm to the front and
        // 24 mm to the head of the middle.
        const std::pair<PlaneKind, QPointF> views[] = {{PlaneKind::Axial, {30, -20}},
            {PlaneKind::Sagittal, {-20, -24}}, {PlaneKind::Coronal, {30, -24}}};
        for (const Grid grid : {Grid::Axial, Grid::AxialFromHead, Grid::Sagittal, Grid::Coronal,
                 Grid::Tilted, Grid::Oblique}) {
            for (const auto &[plane, offset] : views) {
                const ShownViewer shown(plane, PhantomSeries::make(grid));
                shown.viewer->scrollTo(PhantomSeries::ball);
                shown.draw();
                const double pixelsPerMm = shown.viewer->zoom();
                QCOMPARE(shown.viewer->widget()->frame().size(), ShownViewer::size);
                const BrightSpot spot(shown.viewer->widget()->frame(), 200);
                const double away = QLineF(spot.middle / pixelsPerMm, offset).length();
                // A ball of the right size: the scale is the same in both directions.
                const double area = spot.count / (pixelsPerMm * pixelsPerMm)
                    / (M_PI * PhantomSeries::ballRadius * PhantomSeries::ballRadius);
                QVERIFY2(away < 1.5 && area > 0.6 && area < 1.3,
                    qPrintable(u"%1 images, plane %2: %3 mm away, area %4"_s.arg(int(grid))
                                   .arg(int(plane))
                                   .arg(away)
                                   .arg(area)));
            }
        }
    }

    void greys()
    {
        // The body in the middle, at a quarter, below, above, and in the narrowest window
        const std::pair<KxVolume::Window, int> rows[] = {
            {{0, 400}, 128}, {{100, 400}, 64}, {{500, 400}, 0}, {{-500, 400}, 255}, {{-1, 0}, 255}};
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial));
        for (const auto &[window, grey] : rows) {
            shown.viewer->setWindow(window);
            shown.draw();
            const QImage frame = shown.viewer->widget()->frame();
            QCOMPARE(qGray(frame.pixel(250, 200)), grey);
            QCOMPARE(qGray(frame.pixel(1, 1)), 0); // Outside the volume it is black in all windows.
        }
    }

    void windowsOfClosedSeriesAreForgotten()
    {
        const McHandle<KxVolume> volume = PhantomSeries::makeVolume(Grid::Axial);
        volume->setDefaultWindow({40, 400});
        const ShownViewer shown(PlaneKind::Axial, nullptr);
        const auto show = [&](const McHandle<KxImageSeries> &images) {
            const McHandle<LoadedSeries> series(new LoadedSeries("series", SeriesInfo()));
            images->appendVolume(volume, {});
            series->setImages(images);
            shown.viewer->setSeries(series);
        };
        McHandle<KxImageSeries> images(new KxImageSeries("first"));
        const auto place = reinterpret_cast<std::uintptr_t>(images.get());
        show(images);
        shown.viewer->setWindow({100, 20});
        shown.viewer->setSeries(nullptr);
        images.reset();
        // Images that get the memory of the first ones.
        std::vector<McHandle<KxImageSeries>> others;
        do {
            others.emplace_back(new KxImageSeries("next"));
        } while (
            reinterpret_cast<std::uintptr_t>(others.back().get()) != place && others.size() < 100);
        show(others.back());
        QCOMPARE(shown.viewer->window().center, 40.0);
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
        const std::array shown{
            image.pixel(0, 0), image.pixel(1, 0), image.pixel(0, 1), image.pixel(1, 1)};
        QVERIFY((shown == std::array{0xffff0000U, 0xff00ff00U, 0xff0000ffU, 0xff090807U}));
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
        for (const auto &change :
            std::initializer_list<std::function<void()>>{[&] {
                                                             shown.viewer->setWindow({10, 20});
                                                         },
                [&] { shown.viewer->setPlane(PlaneKind::Coronal); }}) {
            change();
            QVERIFY(KxEngine::instance().renderQueue().isRequested(shown.viewer.get()));
            const qint64 before = shown.viewer->widget()->frame().cacheKey();
            shown.draw();
            QVERIFY(shown.viewer->widget()->frame().cacheKey() != before);
        }
    }

    void quickFrameIsFollowedByFinalOne()
    {
        const ShownViewer shown(PlaneKind::Axial, PhantomSeries::make(Grid::Axial));
        shown.viewer->setSliceIndex(3);
        shown.draw();
        QVERIFY(!shown.viewer->isSettled());
        QTRY_VERIFY(shown.viewer->isSettled() && shown.viewer->isFinal());
        QCOMPARE(shown.viewer->widget()->frame().size(), ShownViewer::size);
        QCOMPARE(shown.viewer->widget()->property("squish_isFinalImage"), QVariant(true));
    }
};

QTEST_MAIN(tst_SliceViewer)
#include "tst_SliceViewer.moc"
