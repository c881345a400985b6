#include "platform/toolkit/QxOptionsButton.h"
#include "platform/toolkit/QxTaskControl.h"
#include "platform/util/McHandle.h"

#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

class tst_QxWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void optionsAreChosen()
    {
        QxOptionsButton button;
        QStringList events;
        connect(&button, &QxOptionsButton::currentOptionChanged, this,
            [&](int position) { events.append(QString::number(position) + button.text()); });
        QVERIFY(!button.currentData().isValid());
        button.addOption(u"a"_s, 10);
        button.addOption(u"b"_s, 20);
        QCOMPARE(button.text(), u"a"_s);
        // The user opens the menu and presses keys.
        QTimer::singleShot(0, &button, [&button] {
            for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) {
                QTest::keyClick(button.menu(), key);
            }
        });
        button.show();
        QTest::mouseClick(&button, Qt::LeftButton);
        QTRY_COMPARE(events, QStringList{u"1b"_s});
        QCOMPARE(button.currentData(), QVariant(20));
        for (const int option : {1, 3, -1, button.findData(10)}) {
            button.setCurrentOption(option);
        }
        QCOMPARE(events.join(u' '), u"1b 0a"_s);
        QVERIFY(button.menu()->actions().at(0)->isChecked()
            && !button.menu()->actions().at(1)->isChecked());
        button.clearOptions();
        button.addOption(u"d"_s);
        QVERIFY(button.text() == u"d"_s && button.menu()->actions().size() == 1);
    }

    void taskReportsBecomeSignals()
    {
        QxTaskControl control;
        QStringList events;
        connect(&control, &QxTaskControl::progressChanged, this,
            [&](float fraction) { events.append(QString::number(double(fraction))); });
        connect(&control, &QxTaskControl::textChanged, this, [&](const QString &text) {
            QCOMPARE(QThread::currentThread(), thread());
            events.append(text);
        });
        control.reportProgress(0.25F);
        McProgressInterface &progress = control;
        progress.setProgressValue(0.5F);
        progress.setProgressInfo("Lädt");
        progress.setProgressInfo(nullptr);
        const std::unique_ptr<QThread> worker(
            QThread::create([&control] { control.reportText(u"read"_s); }));
        worker->start();
        QVERIFY(worker->wait());
        QTRY_COMPARE(events.join(u'|'), u"0.25|0.5|Lädt||read"_s);
    }

    void taskLifetime()
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
};

QTEST_MAIN(tst_QxWidgets)
#include "tst_QxWidgets.moc"
