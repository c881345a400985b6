#include "framework/dispatch/ExActionHandler.h"
#include "framework/input/ExEventHandler.h"
#include "platform/render/KxMsg.h"
#include "tests/support/Prelude.h"

namespace {

/// "letter of the type, code @ position < previous position", "?" when a click may follow, "!" when
/// it activates.
QString text(const ExEvent &event)
{
    return u"%1%2@%3,%4<%5,%6"_s.arg(QLatin1Char("PRCDMW-"[event.type]))
               .arg(event.buttonOrKey)
               .arg(event.x)
               .arg(event.y)
               .arg(event.pressX)
               .arg(event.pressY)
        + (event.isExpectingClick() ? u"?" : u"") + (event.isActivating() ? u"!" : u"");
}

/// Receiver that does, and answers, what the test wants; it may be destroyed by that.
class Receiver : public ExActionHandler
{
public:
    using Reaction = std::function<bool(const ExEvent &)>;

    explicit Receiver(Reaction reaction)
        : m_reaction(std::move(reaction))
    { }
    bool react(const ExEvent &event)
    {
        const Reaction reaction = m_reaction;
        return reaction(event);
    }
    [[nodiscard]] ExEventHandler::Action action(
        ExSignal::Type type, int code, int state = 0, int mask = 0, int orderKey = 0)
    {
        ExSignal signal(type, code, state, mask);
        signal.orderKey = orderKey;
        return {signal, this, &Receiver::react};
    }

private:
    Reaction m_reaction;
};

void sendWheel(QObject &object, const QPoint &position, const QPoint &angleDelta)
{
    QWheelEvent event(position, position, {}, angleDelta, Qt::NoButton, Qt::ShiftModifier,
        Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&object, &event);
}

/// Sends steps such as "P1@10,12": press, release, double click or move ("M0") of a button, wheel
/// ("W0"); or "K", "k" for pressing and releasing a key. Gives whether the last was consumed.
bool send(QObject &object, const QString &steps, Qt::KeyboardModifiers modifiers = {})
{
    bool consumed = false;
    for (const QString &step : steps.split(u' ')) {
        const QPoint position(
            step.section(u'@', 1).section(u',', 0, 0).toInt(), step.section(u',', 1).toInt());
        const auto button = static_cast<Qt::MouseButton>(step.section(u'@', 0, 0).mid(1).toInt());
        if (step == u"K" || step == u"k") {
            QKeyEvent event(
                step == u"K" ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
            QCoreApplication::sendEvent(&object, &event);
        } else if (step.front() == u'W') {
            sendWheel(object, position, QPoint(0, 120));
        } else {
            const QHash<QChar, QEvent::Type> types{{u'P', QEvent::MouseButtonPress},
                {u'R', QEvent::MouseButtonRelease}, {u'D', QEvent::MouseButtonDblClick},
                {u'M', QEvent::MouseMove}};
            QMouseEvent event(types[step.front()], position, position, button, {}, modifiers);
            consumed = QCoreApplication::sendEvent(&object, &event);
        }
    }
    return consumed;
}

} // namespace

class tst_ExEventHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_handler = std::make_unique<ExEventHandler>();
        m_widget = std::make_unique<QWidget>();
        m_widget->setMouseTracking(true);
        m_handler->connect(m_widget.get());
        m_log.clear();
    }

    void gestures_data()
    {
        const Rows<QString, QString> row("steps", "events");
        row("5 pixels", "P1@10,10 R1@15,5", "P1@10,10<-1,-1? C1@10,10<-1,-1");
        row("6 in x", "P1@10,10 R1@16,10", "P1@10,10<-1,-1? R1@16,10<10,10");
        row("6 in y", "P1@10,10 R1@10,4", "P1@10,10<-1,-1? R1@10,4<10,10");
        row("moved a little, then on", "M0@3,4 P2@10,10 M0@12,12 R2@12,12 M0@20,20",
            "M0@3,4<-1,-1 P2@10,10<3,4? M0@12,12<10,10? C2@10,10<3,4 M0@20,20<10,10");
        row("moved away and back", "P1@10,10 M0@16,10 M0@10,10 R1@10,10",
            "P1@10,10<-1,-1? M0@16,10<10,10 M0@10,10<16,10 R1@10,10<10,10");
        row("another button released", "P1@10,10 R2@10,10 R1@10,10",
            "P1@10,10<-1,-1? R2@10,10<10,10 R1@10,10<10,10");
        row("another button pressed", "P1@10,10 P2@11,11 R2@11,11 R1@10,10",
            "P1@10,10<-1,-1? P2@11,11<10,10? C2@11,11<10,10 R1@10,10<11,11");
        row("double click and wheel between", "P1@10,10 D1@30,30 W0@40,40 W0@5,5 R1@10,10",
            "P1@10,10<-1,-1? D1@30,30<10,10 W0@40,40<30,30 W0@5,5<40,40 C1@10,10<-1,-1");
        row("double click alone", "D1@10,10 R1@10,10", "D1@10,10<-1,-1 R1@10,10<10,10");
        row("keys between, at the pointer", "P1@10,10 K k R1@10,10",
            "P1@10,10<-1,-1? P65@77,33<10,10 R65@77,33<77,33 C1@10,10<-1,-1");
        row("sixth button, with a key's value", "P32@1,1 P16@2,2 R32@9,9 R16@2,2",
            "P16@2,2<-1,-1? C16@2,2<-1,-1");
    }

    void gestures()
    {
        QFETCH(const QString, steps);
        QCursor::setPos(m_widget->mapToGlobal(QPoint(77, 33)));
        addToAll(m_logger);
        send(*m_widget, steps);
        QTEST(m_log.join(u' '), "events");
    }

    void clicksOfTheToolkit()
    {
        addToAll(m_logger);
        QTest::mouseClick(m_widget.get(), Qt::RightButton, {}, QPoint(20, 30));
        m_handler->setClickTolerance(0);
        send(*m_widget, u"P1@1,1 R1@2,1"_s);
        QCOMPARE(m_log.join(u' '), u"P2@20,30<-1,-1? C2@20,30<-1,-1 P1@1,1<20,30? R1@2,1<1,1"_s);
    }

    void wheelAndObjectsWithoutPosition()
    {
        QList<int> deltas;
        Receiver wheel([&deltas](const ExEvent &event) {
            deltas.append(event.delta);
            return event.state == Qt::ShiftModifier;
        });
        m_handler->addAction(wheel.action(ExSignal::WHEEL, 0));
        for (const QPoint &delta : {QPoint(0, -120), QPoint(240, 0), QPoint(30, 120)}) {
            sendWheel(*m_widget, QPoint(), delta);
        }
        QCOMPARE(deltas, QList<int>({-120, 240, 120}));
        QObject noWidget;
        m_handler->connect(&noWidget);
        send(noWidget, u"K"_s);
        QCOMPARE(text(m_handler->event(&noWidget)), u"P65@-1,-1<-1,-1"_s);
    }

    void orderStateAndRemoval()
    {
        const auto logging = [this](int number) {
            return Receiver([this, number](const ExEvent &) {
                m_log.append(QString::number(number));
                return number == -1;
            });
        };
        std::array receivers{logging(7), logging(-2), logging(-1), logging(0), logging(1)};
        const std::array orderKeys{7, -2, -1, 0, 0};
        for (std::size_t i = 0; i < receivers.size(); ++i) {
            m_handler->addAction(receivers.at(i).action(ExSignal::PRESS, 1, 0, 0, orderKeys.at(i)));
        }
        const auto action = m_logger.action(ExSignal::PRESS, 1, 0, Qt::ControlModifier);
        m_handler->addAction(action); // The filter's events have no mask: it is called always,
        m_handler->addAction(
            m_logger.action(ExSignal::PRESS, 1, Qt::ControlModifier)); // this never.
        QVERIFY(send(*m_widget, u"P1@0,0"_s, Qt::ControlModifier));
        QCOMPARE(std::exchange(m_log, {}).join(u' '), u"7 P1@0,0<-1,-1? 1 0 -1"_s);

        m_handler->addAction(action);
        m_handler->removeAction(m_logger.action(ExSignal::PRESS, 1));
        m_handler->removeAction(m_logger.action(ExSignal::PRESS, 1, 0, Qt::ControlModifier, 9));
        m_handler->removeAction(receivers[0].action(ExSignal::PRESS, 1));
        send(*m_widget, u"P1@0,0"_s);
        QCOMPARE(m_log.join(u' '), u"P1@0,0<0,0? 1 0 -1"_s);
    }

    void movesAreSwallowedWhileBusy()
    {
        QWidget second;
        second.setMouseTracking(true);
        ExEventHandler secondHandler;
        secondHandler.connect(&second);
        Receiver sending([&](const ExEvent &) {
            m_log.append(u"("_s);
            send(second, u"M0@1,1"_s); // Swallowed, whoever watches.
            m_log.append(text(secondHandler.event(&second)));
            send(*m_widget, u"M0@2,2"_s);
            send(second, u"P1@3,3"_s); // Handled, and nobody counts as busy afterwards.
            send(*m_widget, u"M0@4,4"_s);
            m_log.append(u")"_s);
            return false;
        });
        m_handler->addAction(sending.action(ExSignal::PRESS, 1));
        m_handler->addAction(m_logger.action(ExSignal::MOVE, 0));
        send(*m_widget, u"P1@0,0 M0@5,5"_s);
        QCOMPARE(m_log.join(u' '), u"( -0@-1,-1<-1,-1 M0@4,4<0,0? ) M0@5,5<4,4?"_s);
        QCOMPARE(text(secondHandler.event(&second)), u"P1@3,3<-1,-1?"_s);
    }

    void lastEvent()
    {
        Receiver activating([](const ExEvent &event) {
            event.setActivating(event.type == ExSignal::PRESS);
            return event.type == ExSignal::CLICK;
        });
        addToAll(activating);
        QStringList last{text(m_handler->event(m_widget.get()))};
        for (const auto &step : {u"M0@1,1"_s, u"P1@2,2"_s, u"M0@3,3"_s, u"R1@4,4"_s}) {
            send(*m_widget, step);
            last.append(text(m_handler->event(m_widget.get())));
        }
        QEvent noInput(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(m_widget.get(), &noInput);
        last.append(text(m_handler->event(m_widget.get())));
        send(*m_widget, u"M0@5,5"_s);
        last.append(text(m_handler->event(m_widget.get())));
        // Activating until something else happens; what was consumed is not kept.
        QCOMPARE(last.join(u' '),
            u"-0@-1,-1<-1,-1 M0@1,1<-1,-1 P1@2,2<1,1?! M0@3,3<2,2?! M0@3,3<2,2?! "
            "-0@-1,-1<-1,-1 M0@5,5<2,2"_s);
    }

    void everyObjectByItselfUntilItIsForgotten()
    {
        QWidget second;
        m_handler->connect(&second);
        m_handler->connect(nullptr);
        m_handler->disconnect(nullptr);
        QVERIFY(!m_handler->event(nullptr).object);
        addToAll(m_logger);
        send(*m_widget, u"P1@1,1"_s);
        send(second, u"R1@1,1"_s);
        m_handler->disconnect(m_widget.get());
        send(*m_widget, u"R1@1,1"_s);
        QVERIFY(!m_handler->event(m_widget.get()).object);
        m_handler->connect(m_widget.get());
        send(*m_widget, u"R1@2,2"_s);
        // Widgets at the same address.
        alignas(QWidget) std::array<std::byte, sizeof(QWidget)> place{};
        for (int i = 0; i < 2; ++i) {
            auto *const widget = new (place.data()) QWidget;
            QVERIFY(!m_handler->event(widget).object);
            m_handler->connect(widget);
            send(*widget, u"P1@7,7"_s);
            widget->~QWidget();
        }
        QCOMPARE(m_log.join(u' '),
            u"P1@1,1<-1,-1? R1@1,1<-1,-1 R1@2,2<-1,-1 P1@7,7<-1,-1? P1@7,7<-1,-1?"_s);
    }

    void destroyedByAnAction()
    {
        std::unique_ptr<Receiver> destroyer;
        const std::function<void()> deeds[]
            = {[this] { m_widget.reset(); }, [&destroyer] { destroyer.reset(); },
                [this] { m_handler->disconnect(m_widget.get()); }, [this] { m_handler.reset(); }};
        for (const auto &deed : deeds) {
            for (const bool consumes : {false, true}) {
                init();
                destroyer = std::make_unique<Receiver>([this, deed, consumes](const ExEvent &) {
                    m_log.append(u"deed"_s);
                    deed();
                    return consumes;
                });
                m_handler->addAction(m_logger.action(ExSignal::PRESS, 1));
                m_handler->addAction(destroyer->action(ExSignal::PRESS, 1));
                send(*m_widget, u"P1@1,1"_s);
                // The walk goes on, unless there is nothing left to walk over.
                QCOMPARE(
                    m_log.join(u' '), consumes || !m_handler ? u"deed"_s : u"deed P1@1,1<-1,-1?"_s);
                QVERIFY(!m_handler || !m_widget || destroyer == nullptr
                    || !m_handler->event(m_widget.get()).object);
            }
        }
    }

    void kindsOfSignals()
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

    void equalityOfSignals()
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
        ExEvent event(m_widget.get());
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
        ExEvent read(m_widget.get());
        KxMsg received(message.bytes());
        received >> read;
        QVERIFY(received.isGood() && received.atEnd() && !read.object && !read.isActivating());
        KxMsg again;
        again << read;
        QCOMPARE(again.bytes(), message.bytes());
    }

private:
    /// Binds the receiver to all gestures that the tests send.
    void addToAll(Receiver &receiver)
    {
        for (int type = ExSignal::PRESS; type <= ExSignal::NO_SIGNAL; ++type) {
            for (const int code : {0, 1, 2, 16, 32, int{Qt::Key_A}}) {
                m_handler->addAction(receiver.action(static_cast<ExSignal::Type>(type), code));
            }
        }
    }

    std::unique_ptr<ExEventHandler> m_handler;
    std::unique_ptr<QWidget> m_widget;
    QStringList m_log;
    Receiver m_logger{[this](const ExEvent &event) {
        m_log.append(text(event));
        return false;
    }};
};

QTEST_MAIN(tst_ExEventHandler)
#include "tst_ExEventHandler.moc"
