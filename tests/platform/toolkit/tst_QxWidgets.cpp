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
        for (const auto &[name, data] : {std::pair(u"a"_s, 10), std::pair(u"b"_s, 20)}) {
            button.addOption(name, data);
        }
        QCOMPARE(button.text(), u"a"_s);

        // The user opens the menu and presses keys.
        QTimer::singleShot(0, &button, [&button] {
            QTest::keyClick(button.menu(), Qt::Key_Down);
            QTest::keyClick(button.menu(), Qt::Key_Down);
            QTest::keyClick(button.menu(), Qt::Key_Return);
        });
        button.show();
        QTest::mouseClick(&button, Qt::LeftButton);
        QTRY_COMPARE(events, QStringList{u"1b"_s});
        QCOMPARE(button.currentData(), QVariant(20));

        button.setCurrentOption(1);
        button.setCurrentOption(3);
        button.setCurrentOption(-1);
        button.setCurrentOption(button.findData(10));
        QCOMPARE(events.join(u' '), u"1b 0a"_s);
        QVERIFY(button.menu()->actions().at(0)->isChecked()
            && !button.menu()->actions().at(1)->isChecked());

        button.clearOptions();
        button.addOption(u"d"_s);
        QCOMPARE(button.text(), u"d"_s);
        QCOMPARE(button.menu()->actions().size(), 1);
    }

    void taskReportsBecomeSignals()
    {
        QxTaskControl control;
        QStringList events;
        connect(&control, &QxTaskControl::progressChanged, this,
            [&](float fraction) { events.append(QString::number(static_cast<double>(fraction))); });
        connect(&control, &QxTaskControl::textChanged, this, [&](const QString &text) {
            QCOMPARE(QThread::currentThread(), thread());
            events.append(text);
        });
        control.reportProgress(0.25F);
        McProgressInterface &progress = control;
        progress.setProgressValue(0.5F);
        progress.setProgressInfo("L\xC3\xA4"
                                 "dt");
        progress.setProgressInfo(nullptr);
        const std::unique_ptr<QThread> worker(
            QThread::create([&control] { control.reportText(u"read"_s); }));
        worker->start();
        QVERIFY(worker->wait());
        QTRY_COMPARE(events.join(u'|'),
            QString::fromUtf8("0.25|0.5|L\xC3\xA4"
                              "dt||read"));
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

    void booleanAttributes()
    {
        const auto read
            = [](const char *text) { return QxDom::qStringToBool(QString::fromUtf8(text)); };
        const QList<int> results{read("true"), read("false"), read("TRUE"), read(" true"),
            read("1"), read(""), read(nullptr)};
        QCOMPARE(results, (QList<int>{1, 0, -1, -1, -1, -1, -1}));
    }
};

QTEST_MAIN(tst_QxWidgets)
#include "tst_QxWidgets.moc"
