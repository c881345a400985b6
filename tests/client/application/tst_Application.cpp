#include "client/application/HelpWindow.h"
#include "client/application/PropertyBrowser.h"
#include "client/application/PropertyEditor.h"
#include "client/application/Translations.h"
#include "client/application/WorkstationApplication.h"
#include "client/panels/ProgressLine.h"
#include "client/panels/PropertiesPanel.h"
#include "framework/dialogs/QxTimedWorkAreaControl.h"
#include "framework/dialogs/QxWorkAreaControl.h"
#include "platform/properties/KxPropertyPool.h"
#include "tests/support/NextDialog.h"
#include "tests/support/PrivateSettings.h"

#include <QSignalSpy>
#include <QTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

std::list<KxVariant *> someSettings()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    auto &store = pool.registrySerializer();
    KxProperty<QString> &choice = pool.property("Test.Choice", u"red"_s, store);
    choice.setAttribute(KxPropertyPool::ATTRIBUTE_FLAG_LIST, QStringList{u"red"_s, u"green"_s});
    KxProperty<int> &number = pool.property("Test.Number", 5, store);
    number.setAttribute("Maximum", 10);
    return {&pool.property("Test.Switch", false, store), &number, &choice,
        &pool.property("Test.Text", u"abc"_s, store),
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
    auto *const tree = browser.findChild<QTreeWidget *>();
    for (QTreeWidgetItemIterator item(tree, QTreeWidgetItemIterator::NotHidden); *item; ++item) {
        rows += (*item)->text(0);
    }
    return rows;
}

/// The pages that a page of the help links to.
QStringList links(const QTextDocument &page)
{
    QStringList found;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto each = block.begin(); !each.atEnd(); ++each) {
            const QUrl url(each.fragment().charFormat().anchorHref());
            found += url.isRelative() && !url.isEmpty() ? QStringList(url.path()) : QStringList();
        }
    }
    return found;
}

} // namespace

/// The workstation's application object: settings, help, languages, progress.
class tst_Application : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_application = std::make_unique<WorkstationApplication>(u"en"_s); }

    void settingsAreChangedAndReset()
    {
        const QStringList defaults = values();
        PropertyBrowser browser(someSettings(), {}, {}, nullptr);
        browser.show();
        browser.findChild<QCheckBox *>(u"Test.Switch"_s)->click();
        auto *const number = browser.findChild<QSpinBox *>(u"Test.Number"_s);
        number->selectAll();
        QTest::keyClicks(number, u"8\r"_s);
        auto *const choice = browser.findChild<QComboBox *>(u"Test.Choice"_s);
        QTest::keyClick(choice, Qt::Key_Down);
        auto *const text = browser.findChild<QLineEdit *>(u"Test.Text"_s);
        QTest::keyClicks(text, u"d\r"_s);
        auto *const place = browser.findChild<QLineEdit *>(u"Test.Place"_s);
        const QSignalSpy refused(
            qobject_cast<PropertyEditor *>(place->parentWidget()), &PropertyEditor::refused);
        const auto isRefusalSeen = [&browser] {
            const auto labels = browser.findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
                return label->isVisible() && label->text().contains(u"is no value for Place"_s);
            });
        };
        QTest::keyClicks(place, u"x\r"_s); // No rectangle.
        QVERIFY(isRefusalSeen());
        QCOMPARE(place->text(), u"1|2|3|4"_s);
        place->setText(u"1| 2|3|4"_s); // The same rectangle.
        QTest::keyClick(place, Qt::Key_Return);
        QCOMPARE(place->text(), u"1|2|3|4"_s);
        QCOMPARE(refused.size(), 1);
        auto *const real = browser.findChild<QDoubleSpinBox *>(u"Other.Real"_s);
        real->stepUp();
        QVERIFY(!isRefusalSeen());
        QCOMPARE(values(),
            (QStringList{u"true"_s, u"8"_s, u"green"_s, u"abcd"_s, u"1|2|3|4"_s, u"2.5"_s}));
        QCOMPARE(browser.numChanged(), 5);
        // Written at once, and shown when changed elsewhere.
        QCOMPARE(KxPropertyPool::instance().registrySerializer().read(u"Test.Number"_s), u"8"_s);
        KxPropertyPool::instance().find<int>("Test.Number")->change(3);
        QCOMPARE(number->value(), 3);
        for (QToolButton *reset : browser.findChildren<QToolButton *>()) {
            if (reset->accessibleName().startsWith(u"Number"_s)) {
                reset->click();
                QVERIFY(!reset->isEnabled());
            }
        }
        QCOMPARE(number->value(), 5);
        browser.findChild<QPushButton *>(u"ResetAll"_s)->click();
        QCOMPARE(values(), defaults);
        QCOMPARE(browser.numChanged(), 0);
    }

    void settingsAreFound()
    {
        PropertyBrowser browser(someSettings(), {}, {}, nullptr);
        auto *const search = browser.findChild<QLineEdit *>(u"Search"_s);
        search->setText(u"tex"_s);
        QCOMPARE(shownRows(browser), (QStringList{u"Test"_s, u"Text"_s}));
        search->setText(u"nothing like it"_s);
        QCOMPARE(shownRows(browser), QStringList());
        search->clear();
        QCOMPARE(shownRows(browser).size(), 8); // six settings in two groups
    }

    void laterSettingsComeToThePanel()
    {
        PropertiesPanel panel({QRegularExpression(u"^Late\\."_s)}, {});
        panel.show();
        QVERIFY(panel.findChildren<PropertyEditor *>().isEmpty());
        panel.hide();
        auto &late = KxPropertyPool::instance().property(
            "Late.Switch", false, KxPropertyPool::instance().defaultSerializer());
        panel.show();
        panel.findChild<QCheckBox *>(u"Late.Switch"_s)->click();
        QVERIFY(late.value());
    }

    void settingsAreChosenByPatterns()
    {
        const QList<QRegularExpression> shown{QRegularExpression(u"^Test\\."_s)};
        const QList<QRegularExpression> hidden{QRegularExpression(u"Text|Place"_s)};
        QStringList rows;
        const NextDialog dialog([&rows](QWidget &browser) {
            rows = shownRows(*qobject_cast<PropertyBrowser *>(&browser));
            browser.findChild<QCheckBox *>(u"Test.Switch"_s)->click();
            browser.close();
        });
        QCOMPARE(m_application->propertyBrowser(someSettings(), shown, hidden, true), 1);
        QCOMPARE(rows, (QStringList{u"Test"_s, u"Choice"_s, u"Number"_s, u"Switch"_s}));
    }

    void helpOfATopic()
    {
        QVERIFY(!m_application->helpDisabled());
        QCOMPARE(
            m_application->helpHook(u"Tool.View.Reset"_s), u"workstation.md#tool-view-reset"_s);
        m_application->showHelp({});
        auto *const window
            = qobject_cast<HelpWindow *>(QApplication::topLevelWidgets().constFirst());
        const QTextBrowser &text = *window->findChild<QTextBrowser *>();
        QCOMPARE(text.verticalScrollBar()->value(), 0);
        m_application->showHelp(u"Settings"_s);
        const int settings = text.verticalScrollBar()->value();
        QVERIFY(settings > 0);
        m_application->showHelp(u"no such topic"_s);
        QVERIFY(text.verticalScrollBar()->value() < settings);
        QCOMPARE(QApplication::topLevelWidgets().size(), 1);
        window->close();
    }

    void helpPagesLeadToEachOther()
    {
        for (const QString &language : {u"de"_s, u"en"_s}) {
            Translations::install(language);
            HelpWindow window(nullptr);
            window.show();
            auto &text = *window.findChild<QTextBrowser *>();
            const QString manual = text.source().fileName();
            QStringList pages{manual};
            for (qsizetype i = 0; i < pages.size(); ++i) {
                text.setSource(text.source().resolved(QUrl(pages[i])));
                QVERIFY2(text.document()->characterCount() > 1000, qPrintable(pages[i]));
                pages += links(*text.document());
                pages.removeDuplicates();
            }
            pages.sort();
            QCOMPARE(pages,
                (QStringList{u"administration.md"_s, u"session-file.md"_s, u"troubleshooting.md"_s,
                    manual}));
            text.setSource(text.source().resolved(QUrl(u"troubleshooting.md#sessions"_s)));
            QVERIFY(text.verticalScrollBar()->value() > 0);
            const QUrl page = text.source();
            window.findChild<QPushButton *>(u"Back"_s)->click();
            QVERIFY(text.source() != page);
            window.showTopic(u"Settings"_s);
            QCOMPARE(text.source().fileName(), manual);
        }
    }

    void languages()
    {
        // On the command line, in the settings, used
        const std::tuple<QString, QString, QString> rows[] = {{{}, u"de"_s, u"de"_s},
            {u"en"_s, u"de"_s, u"en"_s}, {u"fr"_s, u"de"_s, u"en"_s}, {u"?"_s, {}, u"en"_s}};
        for (const auto &[given, setting, used] : rows) {
            Translations::languageProperty().setValue(setting);
            Translations::install(given);
            QCOMPARE(Translations::current(), used);
            QCOMPARE(QCoreApplication::translate("Tools", "&Quit"),
                used == u"de"_s ? u"&Beenden"_s : u"&Quit"_s);
        }
        Translations::languageProperty().resetToDefault();
        Translations::install(u"en"_s);
    }

    void progressOfWork()
    {
        QWidget window;
        auto *const line = new ProgressLine(&window);
        m_application->setProgressInterface(line);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        auto *const cancel = line->findChild<QPushButton *>(u"CancelButton"_s);
        auto *const other = new QPushButton(&window);
        other->show();
        int otherClicks = 0;
        connect(other, &QPushButton::clicked, this, [&otherClicks] { ++otherClicks; });
        QxWorkAreaControl control;
        control.startWorking("Counting");
        control.reportProgress(0.25F);
        control.reportText(u"Still counting"_s);
        QVERIFY(line->isVisible() && cancel->isVisible());
        QCOMPARE(line->findChild<QProgressBar *>()->value(), 25);
        QCOMPARE(line->findChild<QLabel *>()->text(), u"Still counting"_s);
        QCOMPARE(control.wasInterrupted(), 0);
        // What the user presses while the work does not let the event loop run.
        for (QPushButton *button : {other, cancel}) {
            const auto click = [&] {
                const QPoint at = button->mapTo(&window, button->rect().center());
                QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
            };
            QMetaObject::invokeMethod(&window, click, Qt::QueuedConnection);
            QCOMPARE(control.wasInterrupted() != 0, button == cancel);
        }
        QCOMPARE(otherClicks, 0);
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

    void quitAsksWhileWorkGoesOn()
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

private:
    PrivateSettings m_settings;
    std::unique_ptr<WorkstationApplication> m_application;
};

QTEST_MAIN(tst_Application)
#include "tst_Application.moc"
