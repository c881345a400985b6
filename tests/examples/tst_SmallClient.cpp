// The program of docs/write-a-viewer.md and docs/write-a-client.md, run as it is: its main() is
// called from the test.
#define main smallClient
#include "examples/small-client/main.cpp"
#undef main

#include "platform/render/KxEngine.h"
#include "tests/platform/dicomio/DicomFixture.h"
#include "tests/support/PrivateSettings.h"

#include <QTest>
#include <QTimer>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

class tst_SmallClient : public QObject
{
    Q_OBJECT

private:
    static QList<SliceCanvas *> canvases()
    {
        QList<SliceCanvas *> found;
        for (const QWidget *window : QApplication::topLevelWidgets()) {
            found += window->findChildren<SliceCanvas *>();
        }
        return found;
    }
    static SliceView &viewOf(SliceCanvas *canvas)
    {
        return *static_cast<SliceView *>(canvas->viewer());
    }

    /// What is painted in the middle.
    static QColor centerOf(SliceCanvas &canvas)
    {
        KxEngine::instance().renderQueue().flush();
        const QImage picture = canvas.grab().toImage();
        return picture.pixelColor(picture.rect().center());
    }

    /// What the user does; the events go to the log.
    static void use(QStringList &log)
    {
        const QList<SliceCanvas *> shown = canvases();
        SliceView &left = viewOf(shown.at(0));
        SliceView &right = viewOf(shown.at(1));
        const auto note = [&](const char *what) {
            log.append(QStringLiteral("%1: %2 %3, %4")
                           .arg(QLatin1String(what))
                           .arg(left.sliceIndex())
                           .arg(right.sliceIndex())
                           .arg(right.isInverted() ? u"inverted"_s : u"plain"_s));
        };
        const auto scroll = [&] {
            QWheelEvent event(
                {9, 9}, {9, 9}, {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(left.renderWidget(), &event);
        };
        note("at first");
        scroll();
        note("linked");
        ExViewerDB::setGroupEnabled(ExViewerDB::TRANSLATION_GROUP, false);
        scroll();
        note("not linked");
        QTest::mouseClick(right.renderWidget(), Qt::LeftButton);
        QVERIFY(ExViewerManager::isActiveViewer(right));
        QTest::keyClick(right.renderWidget()->window(), Qt::Key_I);
        note("key");
    }

private Q_SLOTS:
    void runsAsThePagesSay()
    {
        const PrivateSettings settings;
        DicomFixture files;
        for (int i = 1; i <= 5; ++i) {
            files.addSlice(i, 5 * i, {{"G0028-1050", "0"}, {"G0028-1051", "10"}});
        }
        QByteArray folder = QByteArray::fromStdString(files.folder().string());
        char name[] = "small-client";
        char *argv[] = {name, folder.data(), nullptr};
        int argc = 2;
        QStringList log;
        QList<QColor> colors;
        QTimer user; // Looks again until the series is there.
        connect(&user, &QTimer::timeout, this, [&] {
            const QList<SliceCanvas *> shown = canvases();
            const KxVolume *const volume
                = shown.size() == 2 ? viewOf(shown.at(1)).volume(0) : nullptr;
            const bool isRead = volume != nullptr && volume->value(0, 0, 3) > 10
                && volume->value(0, 0, 4) > 10; // what is scrolled to
            if (isRead && shown.at(0)->hasFocus()) {
                user.stop();
                use(log);
                colors = {centerOf(*shown.at(1)), centerOf(*shown.at(0))};
                viewOf(shown.at(0)).setSeries({});
                colors.append(centerOf(*shown.at(0)));
                ExApplication::instance().quitApplication();
            }
        });
        QMetaObject::invokeMethod(
            this, [&user] { user.start(0); }, Qt::QueuedConnection);
        QCOMPARE(smallClient(argc, argv), 0);
        QCOMPARE(log,
            QStringList({u"at first: 2 2, plain"_s, u"linked: 3 3, plain"_s,
                u"not linked: 4 3, plain"_s, u"key: 4 3, inverted"_s}));
        // White inverted, white, and nothing any more.
        QCOMPARE(colors, (QList<QColor>{Qt::black, Qt::white, Qt::black}));
    }
};

QTEST_APPLESS_MAIN(tst_SmallClient)
#include "tst_SmallClient.moc"
