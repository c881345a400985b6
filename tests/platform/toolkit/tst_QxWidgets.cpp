#include "platform/toolkit/QxDom.h"
#include "platform/toolkit/QxOptionsButton.h"
#include "platform/toolkit/QxTaskControl.h"
#include "platform/util/McHandle.h"

#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <memory>

class tst_QxWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void optionsAreChosen();
    void taskReportsBecomeSignals();
    void taskReportsFromAnotherThread();
    void taskLifetime();
    void booleanAttributes();
};

void tst_QxWidgets::optionsAreChosen()
{
    QxOptionsButton button;
    QStringList events;
    connect(&button, &QxOptionsButton::currentOptionChanged, this,
        [&](int position) { events.append(QString::number(position) + button.text()); });
    QCOMPARE(button.currentOption(), -1);
    QVERIFY(!button.currentData().isValid());
    QCOMPARE(button.addOption(QStringLiteral("a"), 10), 0);
    QCOMPARE(button.addOption(QStringLiteral("b"), 20), 1);
    QCOMPARE(button.addOption(QStringLiteral("c")), 2);
    QCOMPARE(button.text(), QStringLiteral("a"));

    // The user opens the menu and presses keys.
    QTimer::singleShot(0, &button, [&button] {
        QTest::keyClick(button.menu(), Qt::Key_Down);
        QTest::keyClick(button.menu(), Qt::Key_Down);
        QTest::keyClick(button.menu(), Qt::Key_Return);
    });
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QTRY_COMPARE(events, QStringList{QStringLiteral("1b")});
    QCOMPARE(button.currentData(), QVariant(20));

    button.setCurrentOption(1);
    button.setCurrentOption(3);
    button.setCurrentOption(-1);
    button.setCurrentOption(button.findData(10));
    QCOMPARE(button.findData(11), -1);
    QCOMPARE(events.join(QLatin1Char(' ')), QStringLiteral("1b 0a"));
    QVERIFY(button.menu()->actions().at(0)->isChecked()
        && !button.menu()->actions().at(1)->isChecked());

    button.clearOptions();
    QCOMPARE(button.count(), 0);
    QCOMPARE(button.currentOption(), -1);
    button.addOption(QStringLiteral("d"));
    QCOMPARE(button.text(), QStringLiteral("d"));
    QCOMPARE(button.menu()->actions().size(), 1);
}

void tst_QxWidgets::taskReportsBecomeSignals()
{
    QxTaskControl control;
    QStringList events;
    connect(&control, &QxTaskControl::progressChanged, this,
        [&](float fraction) { events.append(QString::number(static_cast<double>(fraction))); });
    connect(&control, &QxTaskControl::textChanged, this,
        [&](const QString &text) { events.append(text); });
    KxTaskControl &task = control;
    McProgressInterface &progress = control;
    progress.setProgressValue(0.5F);
    task.reportProgress(0.5F);
    progress.setProgressInfo("L\xC3\xA4"
                             "dt");
    progress.setProgressInfo(nullptr);
    task.reportText(QStringLiteral("done"));
    QCOMPARE(events.join(QLatin1Char('|')),
        QString::fromUtf8("0.5|0.5|L\xC3\xA4"
                          "dt||done"));
    QCOMPARE(progress.wasInterrupted(), 0);
}

void tst_QxWidgets::taskReportsFromAnotherThread()
{
    QxTaskControl control;
    QStringList events;
    connect(&control, &QxTaskControl::textChanged, this, [&](const QString &text) {
        QCOMPARE(QThread::currentThread(), thread());
        events.append(text);
    });
    const std::unique_ptr<QThread> worker(
        QThread::create([&control] { control.reportText(QStringLiteral("read")); }));
    worker->start();
    QVERIFY(worker->wait());
    QTRY_COMPARE(events, QStringList{QStringLiteral("read")});
}

void tst_QxWidgets::taskLifetime()
{
    QPointer<QxTaskControl> control = new QxTaskControl;
    McHandle<KxTaskControl> handle(control.data());
    McHandle<QxTaskControl> other(control.data());
    handle.reset();
    QVERIFY(control);
    other.reset();
    QVERIFY(!control);

    QObject parent;
    control = new QxTaskControl(&parent);
    delete control.data();
    QVERIFY(parent.children().isEmpty());
}

void tst_QxWidgets::booleanAttributes()
{
    const auto read
        = [](const char *text) { return QxDom::qStringToBool(QString::fromUtf8(text)); };
    const QList<int> results{read("true"), read("false"), read("TRUE"), read(" true"), read("1"),
        read(""), read(nullptr)};
    QCOMPARE(results, (QList<int>{1, 0, -1, -1, -1, -1, -1}));
}

QTEST_MAIN(tst_QxWidgets)
#include "tst_QxWidgets.moc"
