#include "client/viewers/DisplayProbe.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/VolumeViewer.h"
#include "platform/render/KxEngine.h"
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

    void ballIsWhereItBelongs_data()
    {
        QTest::addColumn<Grid>("grid");
        QTest::newRow("axial") << Grid::Axial;
        QTest::newRow("axial from head") << Grid::AxialFromHead;
        QTest::newRow("sagittal") << Grid::Sagittal;
        QTest::newRow("tilted") << Grid::Tilted;
        QTest::newRow("oblique") << Grid::Oblique;
    }

    void ballIsWhereItBelongs()
    {
        if (!draws()) {
            QSKIP("needs an X display");
        }
        QFETCH(Grid, grid);
        m_viewer->setSeries(PhantomSeries::make(grid));
        m_viewer->setWindow(ballOnly);
        // From the front: 30 mm to the patient's left is right, 24 mm to the head is up.
        const QPointF found = ball();
        QVERIFY2(QLineF(found, {30, -24}).length() < 2,
            qPrintable(u"%1 %2"_s.arg(found.x()).arg(found.y())));
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
        if (draws()) {
            const QPointF found = ball();
            QVERIFY2(QLineF(found, {-20, -24}).length() < 2,
                qPrintable(u"%1 %2"_s.arg(found.x()).arg(found.y())));
        }
        m_viewer->reset();
        QVERIFY((m_viewer->viewDirection() - McVec3d{0, 1, 0}).length() < 1e-9);
    }

    void quickWhileTurning()
    {
        if (!draws()) {
            QSKIP("needs an X display");
        }
        m_viewer->setSeries(PhantomSeries::make(Grid::Axial));
        QTRY_VERIFY(m_viewer->isSettled());
        m_viewer->rotate(10, 5);
        QTRY_VERIFY(!m_viewer->isFinal());
        QVERIFY(m_viewer->widget()->overlay().warnings.contains(u"preview"_s));
        QTRY_VERIFY(m_viewer->isSettled());
        QVERIFY(m_viewer->isFinal());
        QVERIFY(m_viewer->widget()->overlay().warnings.isEmpty());
    }

    void picturesComeDuringCine()
    {
        if (!draws()) {
            QSKIP("needs an X display");
        }
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
        if (!draws()) {
            QSKIP("needs an X display");
        }
        m_viewer->setSeries(PhantomSeries::make(Grid::Axial, "first"));
        KxEngine::instance().renderQueue().flush();
        m_viewer->setSeries(nullptr);
        QTRY_VERIFY(m_viewer->isSettled());
        QVERIFY(m_viewer->widget()->frame().isNull());
        m_viewer->setSeries(PhantomSeries::make(Grid::Coronal, "second"));
        m_viewer->setWindow(ballOnly);
        QVERIFY(QLineF(ball(), {30, -24}).length() < 2);
    }

private:
    [[nodiscard]] bool draws() const { return hasXDisplay(); }
    /// Waits for the final picture; where the ball is in it, in mm from the middle.
    [[nodiscard]] QPointF ball()
    {
        if (!QTest::qWaitFor([this] { return m_viewer->isSettled(); })) {
            qFatal("the picture does not come");
        }
        const QImage &frame = m_viewer->widget()->frame();
        QPointF sum;
        int count = 0;
        for (int y = 0; y < frame.height(); ++y) {
            for (int x = 0; x < frame.width(); ++x) {
                if (qGray(frame.pixel(x, y)) > 40) {
                    sum += QPointF(x + 0.5, y + 0.5);
                    ++count;
                }
            }
        }
        if (count == 0) {
            return {1e6, 1e6};
        }
        return (sum / count - QPointF(150, 150)) / m_viewer->zoom();
    }

    std::unique_ptr<QWidget> m_parent;
    McHandle<VolumeViewer> m_viewer;
};

QTEST_MAIN(tst_VolumeViewer)
#include "tst_VolumeViewer.moc"
