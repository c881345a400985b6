#include "client/viewers/DisplayProbe.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/VolumeViewer.h"
#include "platform/render/KxEngine.h"
#include "tests/client/support/BrightSpot.h"
#include "tests/client/support/PhantomSeries.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

using Grid = PhantomSeries::Grid;

namespace {

/// The ball is the only thing above 500.
constexpr KxVolume::Window ballOnly{750, 500};

McHandle<LoadedSeries> incompleteSeries()
{
    const McHandle<LoadedSeries> complete = PhantomSeries::make(Grid::Axial);
    const McHandle<LoadedSeries> series(new LoadedSeries("incomplete", complete->info()));
    series->setImages(complete->images());
    return series;
}

} // namespace

/// What a volume viewer draws, on a display; without one only that it says so.
class tst_VolumeViewer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        const QByteArray test = QTest::currentTestFunction();
        if (!draws() && test != "saysWhyThereIsNoPicture" && test != "turnedToTheSide"
            && test != "goesWhileDrawing") {
            QSKIP("needs an X display");
        }
        m_parent = std::make_unique<QWidget>();
        m_viewer = new VolumeViewer(m_parent.get());
        m_viewer->widget()->resize(300, 300);
    }

    void cleanup()
    {
        m_viewer.reset();
        m_parent.reset();
    }

    void saysWhyThereIsNoPicture()
    {
        const McHandle<LoadedSeries> series = incompleteSeries();
        m_viewer->setSeries(series);
        const QString waiting = u"The 3D view follows when all slices have been read."_s;
        QVERIFY(draws() ? m_viewer->obstacle() == waiting
                        : m_viewer->obstacle().contains(u"needs an X display"_s));
        QCOMPARE(m_viewer->widget()->overlay().message, m_viewer->obstacle());
        QVERIFY(m_viewer->isSettled() || KxEngine::instance().renderQueue().isRequested(m_viewer));
        series->setComplete();
        m_viewer->seriesChanged();
        QCOMPARE(m_viewer->obstacle().isEmpty(), draws());
        QTRY_VERIFY(m_viewer->isSettled());
        QCOMPARE(m_viewer->widget()->frame().isNull(), !draws());
    }

    void ballIsWhereItBelongs()
    {
        for (const Grid grid :
            {Grid::Axial, Grid::AxialFromHead, Grid::Sagittal, Grid::Tilted, Grid::Oblique}) {
            m_viewer->setSeries(PhantomSeries::make(grid));
            m_viewer->setWindow(ballOnly);
            // From the front: 30 mm to the patient's left is right, 24 mm to the head is up.
            QVERIFY2(isBallAt({30, -24}), qPrintable(QString::number(int(grid))));
        }
    }

    void thinAndFlat()
    {
        const McHandle<KxVolume> volume(new KxVolume({512, 512, 3}, KxVolume::ScalarType::Float32));
        volume->setVoxelToPatient(McTransform3d({1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {}));
        const McHandle<LoadedSeries> series = incompleteSeries();
        series->setImages(McHandle<KxImageSeries>(new KxImageSeries("thin")));
        series->images()->appendVolume(volume, "");
        series->setComplete();
        m_viewer->setSeries(series);
        m_viewer->setWindow({0, 1});
        QTRY_VERIFY(m_viewer->isSettled());
        QVERIFY(BrightSpot(m_viewer->widget()->frame(), 40).count > 0);
    }

    void turnedToTheSide()
    {
        m_viewer->setSeries(PhantomSeries::make(Grid::Axial));
        m_viewer->setWindow(ballOnly);
        // A quarter turn to the left shows the patient's left side: the front is on the left.
        m_viewer->rotate(-100 * M_PI / 2, 0);
        QVERIFY((m_viewer->viewDirection() - McVec3d{-1, 0, 0}).length() < 1e-9);
        QVERIFY((m_viewer->up() - McVec3d{0, 0, 1}).length() < 1e-9);
        QCOMPARE(m_viewer->widget()->overlay().letters[OverlayContent::Left],
            draws() ? u"A"_s : QString());
        QVERIFY(!draws() || isBallAt({-20, -24}));
        m_viewer->reset();
        QVERIFY((m_viewer->viewDirection() - McVec3d{0, 1, 0}).length() < 1e-9);
    }

    void quickWhileTurning()
    {
        m_viewer->setSeries(PhantomSeries::make(Grid::Axial));
        QTRY_VERIFY(m_viewer->isSettled());
        m_viewer->rotate(10, 5);
        QTRY_VERIFY(!m_viewer->isFinal());
        QVERIFY(m_viewer->widget()->overlay().warnings.contains(u"preview"_s));
        QTRY_VERIFY(m_viewer->isSettled());
        QVERIFY(m_viewer->isFinal() && m_viewer->widget()->overlay().warnings.isEmpty());
    }

    void resetWindowIsSeen()
    {
        m_viewer->setSeries(PhantomSeries::make(Grid::Axial));
        QTRY_VERIFY(m_viewer->isSettled());
        const QImage first = m_viewer->widget()->frame();
        m_viewer->setWindow(ballOnly);
        QTRY_VERIFY(m_viewer->isSettled());
        QVERIFY(m_viewer->widget()->frame() != first);
        m_viewer->reset();
        QTRY_VERIFY(m_viewer->isSettled());
        QCOMPARE(m_viewer->widget()->frame(), first);
    }

    void picturesComeDuringCine()
    {
        constexpr int phases = 3;
        m_viewer->setSeries(PhantomSeries::make(Grid::Axial, "phases", phases));
        QTRY_VERIFY(m_viewer->isSettled());
        const QImage first = m_viewer->widget()->frame();
        bool wasBlank = false;
        // Phases come faster than pictures are made, so none may be given up for the next.
        QVERIFY(QTest::qWaitFor([&] {
            m_viewer->setPhase(m_viewer->phase() % (phases - 1) + 1);
            KxEngine::instance().renderQueue().flush();
            wasBlank = wasBlank || m_viewer->widget()->frame().isNull();
            return m_viewer->widget()->frame() != first;
        }));
        QVERIFY(!wasBlank && !m_viewer->isFinal());
        m_viewer->setPhase(0);
        QTRY_VERIFY(m_viewer->isSettled());
        QCOMPARE(m_viewer->widget()->frame(), first);
    }

    void goesWhileDrawing()
    {
        m_viewer->setSeries(PhantomSeries::make(Grid::Axial));
        KxEngine::instance().renderQueue().flush(); // The thread has been asked.
        m_viewer.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(m_parent->findChildren<QWidget *>().isEmpty());
    }

    void anotherSeriesWhileDrawing()
    {
        m_viewer->setSeries(PhantomSeries::make(Grid::Axial, "first"));
        KxEngine::instance().renderQueue().flush();
        m_viewer->setSeries(nullptr);
        QTRY_VERIFY(m_viewer->isSettled());
        QVERIFY(m_viewer->widget()->frame().isNull());
        m_viewer->setSeries(PhantomSeries::make(Grid::Coronal, "second"));
        m_viewer->setWindow(ballOnly);
        QVERIFY(isBallAt({30, -24}));
    }

private:
    [[nodiscard]] bool draws() const { return hasXDisplay(); }
    /// Waits for the final picture. @param place in mm from the middle.
    [[nodiscard]] bool isBallAt(const QPointF &place)
    {
        if (!QTest::qWaitFor([this] { return m_viewer->isSettled(); })) {
            return false;
        }
        const BrightSpot ball(m_viewer->widget()->frame(), 40);
        return ball.count > 0 && QLineF(ball.middle / m_viewer->zoom(), place).length() < 2;
    }

    std::unique_ptr<QWidget> m_parent;
    McHandle<VolumeViewer> m_viewer;
};

QTEST_MAIN(tst_VolumeViewer)
#include "tst_VolumeViewer.moc"
