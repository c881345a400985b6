#include "framework/dialogs/QxTimedWorkAreaControl.h"
#include "framework/dialogs/QxWorkAreaControl.h"
#include "tests/support/Prelude.h"

namespace {

/// Progress display that keeps what it is told.
class FakeDisplay : public McProgressInterface
{
public:
    void startWorking(const char *text) override { log.append(u"start " % str(text)); }
    void startWorkingNoStop(const char *text) override { log.append(u"no stop " % str(text)); }
    void stopWorking() override { log.append(str("stop")); }
    int wasInterrupted() override { return 2; }
    void setProgressValue(float value) override { log.append(QString::number(value)); }
    void setProgressInfo(const char *text) override { log.append(u"info " % str(text)); }

    static QString str(const char *text) { return QString::fromLocal8Bit(text); }
    QString take() { return std::exchange(log, {}).join(u','); }

    QStringList log;
};

} // namespace

class tst_QxWorkAreaControl : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_app.setProgressInterface(&m_display); }

    void shownOnceItPromisesToTakeLong()
    {
        constexpr float veryLong = 1000;
        QxTimedWorkAreaControl projected(veryLong, nullptr);
        QxTimedWorkAreaControl unknown(veryLong, nullptr);
        projected.startWorkingNoStop("Projected");
        unknown.startWorkingNoStop("Unknown");
        projected.reportProgress(1e-6F); // Very long, but within the first second.
        unknown.reportText(u"Later"_s);
        QCOMPARE(m_display.take(), u"1e-06,info Later"_s);
        // Nothing done: shown when the first second is over.
        QTRY_VERIFY((unknown.reportProgress(0), m_display.log.contains(u"no stop Later"_s)));
        m_display.take();
        projected.reportProgress(0.9F); // A second and a bit, all in all.
        projected.stopWorking();
        QCOMPARE(m_display.take(), u"0.9"_s);
        projected.reportProgress(1e-6F);
        projected.reportProgress(1e-6F);
        unknown.stopWorking();
        QCOMPARE(m_display.take(), u"1e-06,no stop Projected,1e-06,stop"_s);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

private:
    FakeDisplay m_display;
    FakeApplication m_app;
};

QTEST_MAIN(tst_QxWorkAreaControl)
#include "tst_QxWorkAreaControl.moc"
