// The program of main.cpp, run as it is: its main() is called from the test.
#define main firstViewer
#include "main.cpp"
#undef main

#include "framework/notification/ExNotifiables.h"
#include "platform/render/KxEngine.h"

#include <QTest>

class ColorMapListener : public ExNotifiable
{
public:
    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotification(this, ExNotification::COLORMAP_CHANGED);
    }
    void notified(const ExNotification &notification) override { heard << notification.viewer(); }

    QList<ExBaseViewer *> heard;
};

class tst_FirstViewer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dragChangesThePicture()
    {
        const McHandle<ColorMapListener> listener(new ColorMapListener);
        ExBaseViewer *viewer = nullptr;
        QList<int> grays;
        const auto grayInTheMiddle = [](QWidget *canvas) {
            return qGray(canvas->grab().toImage().pixel(canvas->width() / 2, canvas->height() / 2));
        };
        // One turn of the render queue draws the first picture, the next one that after the drag.
        const auto look = [&] {
            auto *canvas = static_cast<Canvas *>(QApplication::topLevelWidgets().constFirst());
            viewer = canvas->viewer();
            grays << grayInTheMiddle(canvas);
            if (grays.size() == 2) {
                QCoreApplication::exit();
                return;
            }
            QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, QPoint(50, 90));
            QTest::mouseMove(canvas, QPoint(50, 40));
        };
        QObject::connect(
            &KxEngine::instance().renderQueue(), &KxRenderQueue::turnFinished, this, look);
        int argc = 1;
        char name[] = "first-viewer";
        char *argv[] = {name, nullptr};
        firstViewer(argc, argv);

        QCOMPARE(grays.size(), 2);
        QCOMPARE(grays.at(1) - grays.at(0), 50);
        QCOMPARE(listener->heard, QList<ExBaseViewer *>({viewer}));
    }
};

QTEST_APPLESS_MAIN(tst_FirstViewer)
#include "tst_FirstViewer.moc"
