#include "client/panels/LogModel.h"
#include "client/panels/LogPanel.h"
#include "client/panels/SearchField.h"
#include "platform/util/McLogFile.h"
#include "tests/support/PrivateSettings.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QTableView>
#include <QTest>

#include <thread>

using namespace Qt::StringLiterals;

/// The log as it is written: nothing lost or out of order, and bounded.
class tst_LogPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesComeLive()
    {
        LogPanel panel;
        panel.show();
        McLogFile::infof("a note on %s", "Müller");
        // The log writes warnings to the standard error stream, too.
        McLogFile::warnf("disk is full");
        QTRY_VERIFY(panel.text().endsWith(u"\tWarning\tdisk is full\n"_s));
        auto &level = *panel.findChild<QComboBox *>();
        level.setCurrentIndex(1);
        QCOMPARE(panel.text().count(u'\n'), 1);
        level.setCurrentIndex(0);
        panel.findChild<SearchField *>()->setText(u"MULLER note"_s);
        QVERIFY(panel.text().endsWith(u"\tNote\ta note on Müller\n"_s));
        QCOMPARE(panel.text().count(u'\n'), 1);
    }

    void modelAnswersWhateverIsAsked()
    {
        LogModel model;
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        McLogFile::infof("first");
        model.update();
        QVERIFY(model.rowCount() > 0);
        QVERIFY(!model.data({}, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(-1, Qt::Horizontal, Qt::DisplayRole).isValid());
    }

    void manyLinesFromThreads()
    {
        LogPanel panel;
        panel.show();
        {
            std::vector<std::jthread> writers;
            for (int writer = 0; writer < 4; ++writer) {
                writers.emplace_back([writer] {
                    for (int i = 0; i < 25000; ++i) {
                        theLogInstance().print("w" + std::to_string(writer), std::to_string(i));
                    }
                });
            }
            for (int looks = 0; looks < 20; ++looks) {
                panel.updateLines(); // While they write.
            }
        }
        panel.updateLines();
        const auto kept = theLogInstance().tail();
        QCOMPARE(kept.size(), McLogFile::tailLines);
        QCOMPARE(panel.findChild<QTableView *>()->model()->rowCount(),
            static_cast<int>(McLogFile::tailLines));
        // The panel, which has followed in parts, shows what is kept as a whole.
        const QStringList lines = panel.text().split(u'\n', Qt::SkipEmptyParts);
        for (std::size_t i = 0; i < kept.size(); ++i) {
            QCOMPARE(kept[i].number, kept[0].number + i);
            QCOMPARE(lines[static_cast<qsizetype>(i)].section(u'\t', 2),
                QString::fromStdString(kept[i].text));
        }
    }

    void longLinesAreCutBetweenCharacters()
    {
        const std::string ones = std::string(McLogFile::tailLineLength - 1 - 6, 'x');
        theLogInstance().print("tag", ones + "ü end"); // "[tag] " comes before.
        QCOMPARE(theLogInstance().tail().back().text, "[tag] " + ones + "…");
    }

private:
    PrivateSettings m_settings;
};

QTEST_MAIN(tst_LogPanel)
#include "tst_LogPanel.moc"
