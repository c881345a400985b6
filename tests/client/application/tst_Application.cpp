#include "client/application/HelpWindow.h"
#include "client/application/PropertyBrowser.h"
#include "client/application/Translations.h"
#include "client/application/WorkstationApplication.h"
#include "client/panels/ProgressLine.h"
#include "framework/dialogs/QxTimedWorkAreaControl.h"
#include "framework/dialogs/QxWorkAreaControl.h"
#include "platform/properties/KxPropertyPool.h"
#include "tests/support/NextDialog.h"
#include "tests/support/PrivateSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>

/// The workstation's application object: settings, help, languages, progress.
class tst_Application : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void settingsAreChangedAndReset();
    void settingsAreFound();
    void settingsAreChosenByPatterns();
    void helpOfATopic();
    void languages_data();
    void languages();
    void progressOfWork();
    void quitAsksWhileWorkGoesOn();

private:
    PrivateSettings m_settings;
    std::unique_ptr<WorkstationApplication> m_application;
};

namespace {

std::list<KxVariant *> someSettings()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    auto &store = pool.registrySerializer();
    KxProperty<QString> &choice = pool.property("Test.Choice", QStringLiteral("red"), store);
    choice.setAttribute(KxPropertyPool::ATTRIBUTE_FLAG_LIST,
        QStringList{QStringLiteral("red"), QStringLiteral("green")});
    KxProperty<int> &number = pool.property("Test.Number", 5, store);
    number.setAttribute("Maximum", 10);
    return {&pool.property("Test.Switch", false, store), &number, &choice,
        &pool.property("Test.Text", QStringLiteral("abc"), store),
        &pool.property("Test.Place", QRect(1, 2, 3, 4), store),
        &pool.property("Other.Real", 1.5, store)};
}

QStringList values()
{
    QStringList all;
    for (const KxVariant *property : someSettings()) {
        all += property->toString();
    }
    return all;
}

QStringList shownRows(const PropertyBrowser &browser)
{
    QStringList rows;
    for (QTreeWidgetItemIterator item(
             browser.findChild<QTreeWidget *>(), QTreeWidgetItemIterator::NotHidden);
         *item != nullptr; ++item) {
        rows += (*item)->text(0);
    }
    return rows;
}

} // namespace

void tst_Application::initTestCase()
{
    m_application = std::make_unique<WorkstationApplication>(QStringLiteral("en"));
}

void tst_Application::settingsAreChangedAndReset()
{
    const QStringList defaults = values();
    PropertyBrowser browser(someSettings(), {}, {}, nullptr);
    browser.show();
    browser.findChild<QCheckBox *>(QStringLiteral("Test.Switch"))->click();
    auto *const number = browser.findChild<QSpinBox *>(QStringLiteral("Test.Number"));
    number->selectAll();
    QTest::keyClicks(number, QStringLiteral("8\r"));
    auto *const choice = browser.findChild<QComboBox *>(QStringLiteral("Test.Choice"));
    QTest::keyClick(choice, Qt::Key_Down);
    auto *const text = browser.findChild<QLineEdit *>(QStringLiteral("Test.Text"));
    QTest::keyClicks(text, QStringLiteral("d\r"));
    auto *const place = browser.findChild<QLineEdit *>(QStringLiteral("Test.Place"));
    QTest::keyClicks(place, QStringLiteral("x\r")); // No rectangle: refused.
    QCOMPARE(place->text(), QStringLiteral("1|2|3|4"));
    auto *const real = browser.findChild<QDoubleSpinBox *>(QStringLiteral("Other.Real"));
    real->stepUp();
    QCOMPARE(values(),
        (QStringList{QStringLiteral("true"), QStringLiteral("8"), QStringLiteral("green"),
            QStringLiteral("abcd"), QStringLiteral("1|2|3|4"), QStringLiteral("2.5")}));
    QCOMPARE(browser.numChanged(), 5);
    // Written at once, and shown when changed elsewhere.
    QCOMPARE(KxPropertyPool::instance()
                 .registrySerializer()
                 .read(QStringLiteral("Test.Number"))
                 .value_or(QString()),
        QStringLiteral("8"));
    KxPropertyPool::instance().find<int>("Test.Number")->change(3);
    QCOMPARE(number->value(), 3);
    for (QToolButton *reset : browser.findChildren<QToolButton *>()) {
        if (reset->accessibleName().startsWith(QStringLiteral("Number"))) {
            QVERIFY(reset->isEnabled());
            reset->click();
            QVERIFY(!reset->isEnabled());
        }
    }
    QCOMPARE(number->value(), 5);
    browser.findChild<QPushButton *>(QStringLiteral("ResetAll"))->click();
    QCOMPARE(values(), defaults);
    QCOMPARE(browser.numChanged(), 0);
}

void tst_Application::settingsAreFound()
{
    PropertyBrowser browser(someSettings(), {}, {}, nullptr);
    auto *const search = browser.findChild<QLineEdit *>(QStringLiteral("Search"));
    search->setText(QStringLiteral("tex"));
    QCOMPARE(shownRows(browser), (QStringList{QStringLiteral("Test"), QStringLiteral("Text")}));
    search->setText(QStringLiteral("nothing like it"));
    QCOMPARE(shownRows(browser), QStringList());
    search->clear();
    QCOMPARE(shownRows(browser).size(), 8); // six settings in two groups
}

void tst_Application::settingsAreChosenByPatterns()
{
    const QList<QRegularExpression> shown{QRegularExpression(QStringLiteral("^Test\\."))};
    const QList<QRegularExpression> hidden{QRegularExpression(QStringLiteral("Text|Place"))};
    QStringList rows;
    const NextDialog dialog([&rows](QWidget &browser) {
        rows = shownRows(*qobject_cast<PropertyBrowser *>(&browser));
        browser.findChild<QCheckBox *>(QStringLiteral("Test.Switch"))->click();
        browser.close();
    });
    QCOMPARE(m_application->propertyBrowser(someSettings(), shown, hidden, true), 1);
    QCOMPARE(rows,
        (QStringList{QStringLiteral("Test"), QStringLiteral("Choice"), QStringLiteral("Number"),
            QStringLiteral("Switch")}));
}

void tst_Application::helpOfATopic()
{
    QVERIFY(!m_application->helpDisabled());
    QCOMPARE(m_application->helpHook(QStringLiteral("Tool.View.Reset")),
        QStringLiteral("workstation.md#tool-view-reset"));
    m_application->showHelp({});
    auto *const window = qobject_cast<HelpWindow *>(QApplication::topLevelWidgets().constFirst());
    const QTextBrowser &text = *window->findChild<QTextBrowser *>();
    QCOMPARE(text.verticalScrollBar()->value(), 0);
    m_application->showHelp(QStringLiteral("Settings"));
    QVERIFY(text.verticalScrollBar()->value() > 0);
    const int settings = text.verticalScrollBar()->value();
    m_application->showHelp(QStringLiteral("no such topic"));
    QVERIFY(text.verticalScrollBar()->value() < settings);
    QCOMPARE(QApplication::topLevelWidgets().size(), 1);
    window->close();
}

void tst_Application::languages_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("used");
    QTest::newRow("setting") << QString() << "de"
                             << "de";
    QTest::newRow("command line before setting") << "en"
                                                 << "de"
                                                 << "en";
    QTest::newRow("no translation") << "fr"
                                    << "de"
                                    << "en";
    QTest::newRow("no language") << "?"
                                 << ""
                                 << "en";
}

void tst_Application::languages()
{
    QFETCH(const QString, given);
    QFETCH(const QString, setting);
    QFETCH(const QString, used);
    Translations::languageProperty().setValue(setting);
    Translations::install(given);
    QCOMPARE(Translations::current(), used);
    QCOMPARE(QCoreApplication::translate("Tools", "&Quit"),
        used == QStringLiteral("de") ? QStringLiteral("&Beenden") : QStringLiteral("&Quit"));
    Translations::languageProperty().resetToDefault();
    Translations::install(QStringLiteral("en"));
}

void tst_Application::progressOfWork()
{
    QWidget window;
    auto *const line = new ProgressLine(&window);
    m_application->setProgressInterface(line);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *const cancel = line->findChild<QPushButton *>(QStringLiteral("CancelButton"));
    auto *const other = new QPushButton(&window);
    other->show();
    int otherClicks = 0;
    connect(other, &QPushButton::clicked, this, [&otherClicks] { ++otherClicks; });
    QxWorkAreaControl control;
    control.startWorking("Counting");
    control.reportProgress(0.25F);
    control.reportText(QStringLiteral("Still counting"));
    QVERIFY(line->isVisible() && cancel->isVisible());
    QCOMPARE(line->findChild<QProgressBar *>()->value(), 25);
    QCOMPARE(line->findChild<QLabel *>()->text(), QStringLiteral("Still counting"));
    QCOMPARE(control.wasInterrupted(), 0);
    // What the user presses while the work does not let the event loop run.
    const auto click = [&](QWidget *button) {
        const QPoint at = button->mapTo(&window, button->rect().center());
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    };
    QMetaObject::invokeMethod(
        &window, [&] { click(other); }, Qt::QueuedConnection);
    QCOMPARE(control.wasInterrupted(), 0);
    QCOMPARE(otherClicks, 0);
    QMetaObject::invokeMethod(
        &window, [&] { click(cancel); }, Qt::QueuedConnection);
    QVERIFY(control.wasInterrupted() != 0);
    control.stopWorking();
    QVERIFY(!line->isVisible());
    QxTimedWorkAreaControl timed(0);
    timed.startWorkingNoStop("Without a way to stop");
    QVERIFY(line->isVisible() && !cancel->isVisible());
    QCOMPARE(timed.wasInterrupted(), 0); // The last work's answer is forgotten.
    timed.stopWorking();
    QVERIFY(!line->isVisible());
    m_application->setProgressInterface(nullptr);
}

void tst_Application::quitAsksWhileWorkGoesOn()
{
    ExApplication::ExWorker worker;
    m_application->addRunningProcess(&worker);
    const NextDialog dialog([](QWidget &box) { QTest::keyClick(&box, Qt::Key_Escape); });
    m_application->quitApplication();
    QVERIFY(dialog.hasAppeared() && !m_application->isQuitting());
    m_application->removeRunningProcess(&worker);
    m_application->quitApplication();
    QVERIFY(m_application->isQuitting());
}

QTEST_MAIN(tst_Application)
#include "tst_Application.moc"
