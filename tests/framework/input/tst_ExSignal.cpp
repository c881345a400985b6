#include "framework/input/ExEvent.h"
#include "platform/render/KxMsg.h"
#include "tests/support/Prelude.h"

class tst_ExSignal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kinds()
    {
        const std::pair<ExSignal, const char *> rows[] = {{ExSignal(), "mouse"},
            {{ExSignal::PRESS, 16, 0, 0}, "mouse"}, // Small key codes count as buttons.
            {{ExSignal::PRESS, 17, 0, 0}, "key"}, {{ExSignal::RELEASE, -1, 0, 0}, "key"},
            {{ExSignal::NO_SIGNAL, 65, 0, 0}, ""}, {{ExSignal::WHEEL, 65, 0, 0}, "wheel"},
            {{ExSignal::WHEEL, 4, 0, 0}, "mousewheel"}};
        for (const auto &[signal, kind] : rows) {
            const std::string text = std::string(signal.isMouse() ? "mouse" : "")
                + (signal.isKey() ? "key" : "") + (signal.isWheel() ? "wheel" : "");
            QCOMPARE(text, std::string(kind));
        }
    }

    void buttonState()
    {
        QList<unsigned> bits;
        for (const int state : {0, 1, 2, 4, 5, 24, 3 | 1 << 26, 7 | 7 << 25}) {
            bits.append(ExSignal(ExSignal::PRESS, 1, state, 0).kxButtonState());
        }
        QCOMPARE(bits, QList<unsigned>({0, 1, 4, 2, 3, 0, 21, 63}));
    }

    void equality()
    {
        const ExSignal signal(ExSignal::PRESS, 1, 4, 8); // The mask is 12.
        ExSignal other(ExSignal::PRESS, 1, 4, 12);
        other.expected = ExSignal::CLICK;
        other.orderKey = 9;
        QVERIFY(signal == other);
        const ExSignal others[]{{ExSignal::PRESS, 1, 4, 0}, {ExSignal::PRESS, 1, 12, 0},
            {ExSignal::PRESS, 2, 4, 8}, {ExSignal::RELEASE, 1, 4, 8}};
        QCOMPARE(std::count(std::begin(others), std::end(others), signal), 0);
    }

    void clicks()
    {
        ExEvent event;
        event.type = ExSignal::CLICK;
        event.buttonOrKey = Qt::RightButton;
        QVERIFY(event.isExactClick(Qt::LeftButton | Qt::RightButton));
        QVERIFY(!event.isClick(Qt::LeftButton));
        event.pressY = 5;
        QVERIFY(event.isClick(Qt::RightButton) && !event.isExactClick(Qt::RightButton));
        event.type = ExSignal::PRESS;
        QVERIFY(!event.isClick(Qt::RightButton));
    }

    void viewerOfTheRenderWidget()
    {
        const McHandle<FakeViewer> viewer(new FakeViewer);
        QWidget plain;
        QCOMPARE(ExEvent(&viewer->makeWidget()).viewer(), viewer.get());
        QVERIFY(!ExEvent(&plain).viewer() && !ExEvent().viewer());
    }

    void messages()
    {
        ExEvent event(this);
        static_cast<ExSignal &>(event) = ExSignal(ExSignal::DOUBLE_CLICK, 1, 1 << 25, 2);
        event.orderKey = -3;
        event.expected = ExSignal::CLICK;
        event.x = 10;
        event.pressX = 0x01020304;
        event.pressY = -100;
        event.delta = 120;
        event.setActivating(true);
        KxMsg message;
        message << event;
        QCOMPARE(message.bytes().toHex(),
            QByteArray("030000000100000000000002"
                       "02000002fdffffff02000000"
                       "0a000000ffffffff04030201"
                       "9cffffff78000000"));
        ExEvent read(this);
        KxMsg received(message.bytes());
        received >> read;
        QVERIFY(received.isGood() && received.atEnd() && !read.object && !read.isActivating());
        KxMsg again;
        again << read;
        QCOMPARE(again.bytes(), message.bytes());
    }
};

QTEST_MAIN(tst_ExSignal)
#include "tst_ExSignal.moc"
