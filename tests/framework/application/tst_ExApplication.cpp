#include "platform/render/Kx.h"
#include "platform/toolkit/QxStyleFactory.h"
#include "platform/util/McProgressInterface.h"
#include "tests/support/Prelude.h"

#include <cstdio>

namespace {

QString currentStyle()
{
    return QxStyleFactory::instance().currentStyle();
}

QString cursor()
{
    const QCursor *const active = QApplication::overrideCursor();
    return active == nullptr ? u"none"_qs : QString::number(active->shape());
}

} // namespace

class tst_ExApplication : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void defaultStyle()
    {
        const QByteArray granted(R"({"grantedFunctions": [140]})");
        // The policy, the settings, the style
        const std::tuple<QByteArray, QByteArray, QByteArray> rows[]
            = {{granted, "", "Native Style"}, {"{}", "", "Movara Medium"},
                {granted, "UI.ColorScheme=Movara Dark\n", "Movara Dark"}};
        for (const auto &[policy, stored, style] : rows) {
            m_settings.setPolicy(policy);
            writeFile(m_settings.path("settings.ini"), stored);
            // The setting lives as long as its process, so each row has one of its own.
            QProcess client;
            client.start(QCoreApplication::applicationFilePath(), {u"--style"_qs});
            QVERIFY(client.waitForFinished());
            QCOMPARE(client.readAllStandardOutput(), style);
            QVERIFY(QFile::remove(m_settings.path("settings.ini")));
        }
    }

    void styles()
    {
        auto app = std::make_unique<FakeApplication>();
        QVERIFY(&ExApplication::instance() == app.get());
        KxProperty<QString> &setting = app->styleProperty();
        QCOMPARE(setting.choices(), QxStyleFactory::instance().styleNames());
        QCOMPARE(currentStyle(), u"Native Style"_qs); // Not applied yet.
        const QSignalSpy changes(&setting, &KxVariant::propertyChanged);
        app->setCurrentStyle(u"Movara Dark"_qs);
        QCOMPARE(setting.value(), u"Movara Dark"_qs);
        // The same again applies the style, but writes and tells nothing.
        QxStyleFactory::instance().setCurrentStyle(u"Native Style"_qs);
        QVERIFY(QFile::remove(m_settings.path("settings.ini")));
        app->setCurrentStyle(u"Movara Dark"_qs);
        QCOMPARE(currentStyle(), u"Movara Dark"_qs);
        QVERIFY(changes.count() == 1 && !QFile::exists(m_settings.path("settings.ini")));
        setting.change(u"Movara Light"_qs);
        app.reset();
        setting.change(u"Native Style"_qs);
        QCOMPARE(currentStyle(), u"Movara Light"_qs);
    }

    void helpActions()
    {
        FakeApplication app;
        app.hasNoHelp = true;
        QCOMPARE(app.createShowHelpAction(u"Zoom"_qs), nullptr);
        app.hasNoHelp = false;
        QCOMPARE(app.createShowHelpAction(u"Zoom"_qs)->text(), u"Help..."_qs);
        Kx::DBG_MOVARA_DEBUG = true;
        QAction *const action = app.createShowHelpAction(u"Zoom"_qs);
        Kx::DBG_MOVARA_DEBUG = false;
        QCOMPARE(action->text(), u"Help... (Zoom -> )"_qs);
        action->trigger();
        QMetaObject::invokeMethod(action->parent(), "slotShowHelp"); // No action has sent this.
        QCOMPARE(app.log, QStringList(u"help Zoom"_qs));
    }

    void cursorsOfBusyPhases()
    {
        const QString wait = QString::number(Qt::WaitCursor);
        {
            const McHandle<ExTempCursorHandle> idle = ExApplication::tempNotBusy();
            QCOMPARE(cursor(), u"none"_qs);
        }
        ExApplication::busy();
        {
            McHandle<ExTempCursorHandle> first = ExApplication::tempNotBusy();
            const McHandle<ExTempCursorHandle> second = first;
            first.reset();
            QCOMPARE(cursor(), QString::number(Qt::ArrowCursor));
        }
        QCOMPARE(cursor(), wait);
        ExApplication::notBusy();
        QCOMPARE(cursor(), u"none"_qs);
    }

    void progressDisplayAndWorkers()
    {
        McProgressInterface &fallback = ExApplication::progress();
        FakeApplication app;
        McProgressInterface own;
        for (McProgressInterface *set : {&own, static_cast<McProgressInterface *>(nullptr)}) {
            app.setProgressInterface(set);
            QCOMPARE(&ExApplication::progress(), set == nullptr ? &fallback : set);
        }
        ExApplication::ExWorker a;
        ExApplication::ExWorker b;
        for (ExApplication::ExWorker *worker : {&b, &a, &b}) {
            app.addRunningProcess(worker);
        }
        std::list<ExApplication::ExWorker *> workers{nullptr};
        app.runningProcesses(workers);
        QCOMPARE(workers, (std::list<ExApplication::ExWorker *>{&b, &a}));
        app.removeRunningProcess(&b);
        QVERIFY(app.runningProcessIsRegistered(&a) && !app.runningProcessIsRegistered(&b));
    }
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(u"--style")) {
        FakeApplication app;
        app.setDefaultStyle();
        std::fputs(qUtf8Printable(currentStyle()), stdout);
        return 0;
    }
    tst_ExApplication test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ExApplication.moc"
