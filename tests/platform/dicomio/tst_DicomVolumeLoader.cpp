#include "tests/platform/dicomio/DicomFixture.h"

#include "platform/dicomio/DicomVolumeLoader.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

/// Notes every signal of a loader, and that it came in the right thread.
class Log : public QObject
{
public:
    explicit Log(DicomVolumeLoader &loader)
    {
        QObject::connect(
            &loader, &DicomVolumeLoader::prepared, this, [this] { add(u"prepared"_s); });
        QObject::connect(
            &loader, &DicomVolumeLoader::sliceLoaded, this, [this, &loader](int phase, int z) {
                const double value = loader.series()->volume(phase)->value(0, 0, z);
                add(u"slice %1 holds %2"_s.arg(z).arg(value));
            });
        QObject::connect(&loader, &DicomVolumeLoader::sliceFailed, this,
            [this](int, int z, const QString &reason) {
                add(u"slice %1 failed: %2"_s.arg(z).arg(reason));
            });
        QObject::connect(
            &loader, &DicomVolumeLoader::windowEstimated, this, [this] { add(u"window"_s); });
        QObject::connect(&loader, &DicomVolumeLoader::progressChanged, this,
            [this](int done, int total) { add(u"%1 of %2"_s.arg(done).arg(total)); });
        QObject::connect(&loader, &DicomVolumeLoader::failed, this,
            [this](const QString &reason) { add(u"failed: "_s % reason); });
        QObject::connect(&loader, &DicomVolumeLoader::finished, this,
            [this](bool complete) { add(complete ? u"complete"_s : u"cancelled"_s); });
    }

    [[nodiscard]] QString text() const { return m_lines.join(u'\n'); }

private:
    void add(const QString &line)
    {
        QVERIFY(QThread::currentThread() == thread());
        m_lines << line;
    }

    QStringList m_lines;
};

} // namespace

class tst_DicomVolumeLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void slicesComeOneByOne()
    {
        DicomFixture files;
        files.addStack(3, {{"G0008-0060", "MR"}});
        DicomVolumeLoader loader;
        const Log log(loader);
        loader.start(files.onlySeries());
        QVERIFY(loader.isRunning() && !loader.series());
        QTRY_VERIFY(!loader.isRunning());
        QCOMPARE(log.text(),
            u"prepared\n"
            "window\nslice 1 holds 200\n1 of 3\n"
            "slice 0 holds 100\n2 of 3\n"
            "slice 2 holds 300\n3 of 3\n"
            "complete"_s);
    }

    void failures()
    {
        DicomFixture files;
        files.addStack(2);
        const auto series = files.onlySeries();
        files.cutOff("1.dcm", 8);
        DicomVolumeLoader loader;
        {
            const Log log(loader);
            loader.start(series);
            QTRY_VERIFY(!loader.isRunning());
            QCOMPARE(log.text(),
                u"prepared\n"
                "slice 1 holds 200\n1 of 2\n"
                "slice 0 failed: 1.dcm: Premature end of file while reading "
                "PixelData.\n2 of 2\n"
                "complete"_s);
            QCOMPARE(loader.remarks().size(), 1);
            QCOMPARE(loader.series()->volume(0)->value(0, 0, 0), 200.0);
        }
        std::filesystem::remove_all(files.folder());
        const Log log(loader);
        loader.start(series);
        QTRY_VERIFY(!loader.isRunning());
        QVERIFY2(log.text().startsWith(u"failed: ") && !log.text().contains(u'\n'),
            qPrintable(log.text()));
    }

    void cancelledFromASlot()
    {
        DicomFixture files;
        files.addStack(60);
        DicomVolumeLoader loader;
        QSignalSpy loaded(&loader, &DicomVolumeLoader::sliceLoaded);
        QSignalSpy finished(&loader, &DicomVolumeLoader::finished);
        QObject::connect(&loader, &DicomVolumeLoader::sliceLoaded, this, [&] { loader.cancel(); });
        loader.start(files.onlySeries());
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(loaded.count(), 1);
        QCOMPARE(finished.first().first().toBool(), false);
    }

    void restartedFromASlot()
    {
        DicomFixture first;
        DicomFixture second;
        first.addStack(60, {{"G0008-0060", "MR"}});
        second.addSlice(7, 0);
        const auto series = first.onlySeries();
        const auto other = second.onlySeries();
        for (const bool atTheWindow : {true, false}) {
            DicomVolumeLoader loader;
            QSignalSpy finished(&loader, &DicomVolumeLoader::finished);
            bool isRestarted = false;
            const auto restart = [&] {
                if (!std::exchange(isRestarted, true)) {
                    loader.start(other);
                }
            };
            if (atTheWindow) {
                QObject::connect(&loader, &DicomVolumeLoader::windowEstimated, this, restart);
            }
            QObject::connect(&loader, &DicomVolumeLoader::sliceLoaded, this, [&] {
                QVERIFY(loader.series()); // What was loaded before says nothing any more.
                restart();
            });
            loader.start(series);
            QTRY_VERIFY(!loader.isRunning());
            QCoreApplication::processEvents();
            QCOMPARE(finished.count(), 1);
            QCOMPARE(finished.first().first().toBool(), true);
            QCOMPARE(loader.series()->volume(0)->value(0, 0, 0), 700.0);
        }
    }

    void anEventLoopInASlot()
    {
        DicomFixture files;
        files.addStack(5);
        const auto series = files.onlySeries();
        files.cutOff("1.dcm", 8);
        files.cutOff("2.dcm", 8);
        DicomVolumeLoader loader;
        QSignalSpy finished(&loader, &DicomVolumeLoader::finished);
        int failed = 0;
        QObject::connect(&loader, &DicomVolumeLoader::sliceFailed, this, [&] {
            if (++failed == 1) { // As a message box would.
                QTRY_VERIFY(!loader.isRunning());
            }
        });
        loader.start(series);
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(finished.first().first().toBool(), true);
        QCOMPARE(failed, 2);
    }

    void destroyedWhileItRuns()
    {
        DicomFixture files;
        files.addStack(60);
        const auto series = files.onlySeries();
        McHandle<KxImageSeries> volumes;
        {
            DicomVolumeLoader loader;
            QSignalSpy prepared(&loader, &DicomVolumeLoader::prepared);
            loader.start(series);
            QTRY_COMPARE(prepared.count(), 1);
            volumes = loader.series();
        }
        QCoreApplication::processEvents();
        QCOMPARE(volumes->volume(0)->dimensions()[2], 60); // whoever holds the volumes keeps them
    }
};

QTEST_GUILESS_MAIN(tst_DicomVolumeLoader)
#include "tst_DicomVolumeLoader.moc"
