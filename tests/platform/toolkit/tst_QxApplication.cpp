#include "platform/toolkit/QxApplication.h"
#include "platform/toolkit/QxNotifyHook.h"
#include "tests/support/Process.h"

#include <QTest>
#include <QThread>

#include <functional>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr QEvent::Type watchedType = QEvent::User;

/// Writes down which events it sees, and does what a test tells it to.
class RecordingHook final : public QxNotifyHook
{
public:
    RecordingHook(const QString &name, QStringList &events)
        : m_name(name)
        , m_events(events)
    { }
    bool hookNotify(QObject * /*receiver*/, QEvent *event) override
    {
        if (event->type() != watchedType) {
            return false;
        }
        m_events.append(m_name);
        return action && action();
    }

    std::function<bool()> action;

private:
    QString m_name;
    QStringList &m_events;
};

class Receiver final : public QObject
{
public:
    explicit Receiver(QStringList &events)
        : m_events(events)
    { }
    bool event(QEvent *event) override
    {
        if (event->type() == watchedType) {
            m_events.append(u"object"_s);
        }
        return QObject::event(event);
    }

private:
    QStringList &m_events;
};

/// Sends an event with hooks installed under the application object there is, and tells what
/// happened.
QString runHooks()
{
    QStringList events;
    auto first = std::make_unique<RecordingHook>(u"first"_s, events);
    auto second = std::make_unique<RecordingHook>(u"second"_s, events);
    auto receiver = std::make_unique<Receiver>(events);
    const auto send = [&] {
        QEvent event(watchedType);
        QCoreApplication::sendEvent(receiver.get(), &event);
        events.append(u"|"_s);
    };
    send();
    QxApplication::installHookNotify(first.get());
    QxApplication::installHookNotify(nullptr);
    QxApplication::installHookNotify(second.get());
    QxApplication::installHookNotify(first.get());
    send();
    first->action = [] { return true; };
    send();
    first->action = [&] { return second.reset(), false; };
    send();
    first->action = [&] { return receiver.reset(), false; };
    send();
    first.reset();
    receiver = std::make_unique<Receiver>(events);
    send();
    return events.join(u' ');
}

const QString expectedRun = u"object | first second object | first | "
                            "first object | first | object |"_s;

} // namespace

class tst_QxApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hooks()
    {
        QVERIFY(qobject_cast<QxApplication *>(qApp));
        QCOMPARE(runHooks(), expectedRun);
    }

    void exceptionsEndHere()
    {
        QStringList events;
        RecordingHook hook(u"hook"_s, events);
        hook.action = [&events] {
            return events.size() == 1 ? throw std::runtime_error("as told") : false;
        };
        QxApplication::installHookNotify(&hook);
        Receiver receiver(events);
        for (int i = 0; i < 2; ++i) {
            QCoreApplication::postEvent(&receiver, new QEvent(watchedType));
        }
        QCoreApplication::processEvents();
        QCOMPARE(events.join(u' '), u"hook hook object"_s);
    }

    void hooksUnderAnotherApplicationClass() { QCOMPARE(answerTo("--plain"), expectedRun); }

    void eventsOfOtherThreadsPassBy()
    {
        QStringList events;
        RecordingHook hook(u"hook"_s, events);
        QxApplication::installHookNotify(&hook);
        Receiver receiver(events);
        QThread thread;
        receiver.moveToThread(&thread);
        QCoreApplication::postEvent(&receiver, new QEvent(watchedType));
        thread.start();
        // Leaves the loop of the thread after the event posted before.
        QMetaObject::invokeMethod(
            &receiver, [&thread] { thread.quit(); }, Qt::QueuedConnection);
        QVERIFY(thread.wait());
        QCOMPARE(events, QStringList{u"object"_s});
    }
};

int main(int argc, char *argv[])
{
    if (argc == 2 && QByteArray(argv[1]) == "--plain") {
        const QApplication application(argc, argv);
        std::fputs(qUtf8Printable(runHooks()), stdout);
        return 0;
    }
    const QxApplication application(argc, argv);
    tst_QxApplication test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_QxApplication.moc"
