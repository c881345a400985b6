#include "client/loading/StudySession.h"
#include "client/panels/AttributesView.h"
#include "client/panels/SearchField.h"
#include "client/panels/StudyPanel.h"
#include "client/panels/StudyTree.h"
#include "tests/platform/dicomio/DicomFixture.h"
#include "tests/support/DragAndDrop.h"
#include "tests/support/PrivateSettings.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidgetItemIterator>

using namespace Qt::StringLiterals;

/// The list of studies of a session: what is found, opened and closed, and what cannot be.
class tst_StudyPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        addSeries("2.25.1.1", {1, 2}, "Müller^Anna", "ID1", "2.25.1", "Thorax nativ");
        addSeries("2.25.1.2", {1, 2, 4}, "Müller^Anna", "ID1", "2.25.1", "Thorax venös");
        addSeries("2.25.2.1", {1, 2}, "Doe^Jane", "ID2", "2.25.2", "Schädel");
        m_files.add("state.dcm",
            *DicomFixture::attributes(900,
                {{"G0008-0060", "PR"}, {"G0008-0016", "1.2.840.10008.5.1.4.1.1.11.1"},
                    {"G0020-000E", "2.25.2.9"}, {"G0020-000D", "2.25.2"}, {"G0010-0020", "ID2"},
                    {"G0028-0010", ""}, {"G0028-0011", ""}}),
            {});
    }

    void init()
    {
        m_session = std::make_unique<StudySession>();
        m_panel = std::make_unique<StudyPanel>(*m_session);
        m_session->open({m_files.folderName()});
        QTRY_VERIFY(tree().topLevelItemCount() == 2);
    }

    void cleanup()
    {
        m_panel.reset();
        m_session.reset();
    }

    void search()
    {
        const std::pair<QString, QString> rows[] = {{{}, u"2.25.1.1 2.25.1.2 2.25.2.1 PR"_s},
            {u"muller"_s, u"2.25.1.1 2.25.1.2"_s}, // A patient has all its series.
            {u"VENOS mull"_s, u"2.25.1.2"_s}, // Words of several levels, in any order
            {u"muller schadel"_s, QString()}, // A word of another patient
            {u"pr"_s, u"PR"_s}, {u"id2 1970-01"_s, u"2.25.2.1 PR"_s}};
        auto &field = *m_panel->findChild<SearchField *>();
        for (const auto &[words, series] : rows) {
            QTest::keyClicks(&field, words);
            QCOMPARE(shownSeries().join(u' '), series);
            QTest::keyClick(&field, Qt::Key_Escape);
            QCOMPARE(shownSeries().size(), 4);
        }
    }

    void foldersCanBeDropped()
    {
        const QSignalSpy dropped(m_panel.get(), &StudyPanel::pathsDropped);
        const auto drop = [this](const QList<QUrl> &urls) {
            QMimeData dragged;
            dragged.setUrls(urls);
            return dragAndDrop(dragged, *m_panel, {9, 9});
        };
        QVERIFY(!drop({QUrl(u"https://example.org/"_s)}));
        QVERIFY(drop({QUrl::fromLocalFile(u"/a folder"_s), QUrl(u"https://example.org/"_s)}));
        QCOMPARE(dropped.size(), 1);
        QCOMPARE(dropped.first().first().toStringList(), QStringList{u"/a folder"_s});
        // None of the widgets within takes a folder for a text.
        for (const QWidget *each : m_panel->findChildren<QWidget *>()) {
            QVERIFY2(!each->acceptDrops(), each->metaObject()->className());
        }
    }

    void selectedIsOpenedAtOnce()
    {
        QSignalSpy opened(m_panel.get(), &StudyPanel::openRequested);
        auto &button = *m_panel->findChild<QPushButton *>(u"Open"_s);
        QVERIFY(!button.isEnabled());
        item(u"Nativ"_s)->setSelected(true);
        item(u"Schädel"_s)->setSelected(true);
        QTest::mouseClick(&button, Qt::LeftButton);
        // One of several that are selected brings the others along; another one does not.
        Q_EMIT tree().itemActivated(item(u"Schädel"_s), 0);
        Q_EMIT tree().itemActivated(item(u"venös"_s), 0);
        // Of a patient what passes the search.
        tree().setCurrentItem(item(u"ID1"_s));
        tree().setFilter(u"venös"_s);
        QTest::mouseClick(&button, Qt::LeftButton);
        QList<QStringList> uids;
        for (const auto &each : opened) {
            uids += each.first().toStringList();
            uids.last().sort();
        }
        const QStringList both{u"2.25.1.1"_s, u"2.25.2.1"_s};
        QCOMPARE(uids, (QList<QStringList>{both, both, {u"2.25.1.2"_s}, {u"2.25.1.2"_s}}));
    }

    void whatIsNoImageSaysSo()
    {
        QTreeWidgetItem *const state = item(u"PR"_s);
        QVERIFY(state->toolTip(0).contains(u"presentation state"_s, Qt::CaseInsensitive));
        state->setSelected(true);
        QVERIFY(!m_panel->findChild<QPushButton *>(u"Open"_s)->isEnabled());
        const auto isIncomplete = [this](const QString &text) {
            return item(text)->data(0, Qt::AccessibleTextRole).toString().endsWith(u"incomplete");
        };
        QVERIFY(isIncomplete(u"venös"_s) && !isIncomplete(u"Nativ"_s)); // It has 1, 2 and 4.
    }

    void patientIsClosedAsAWhole()
    {
        QSignalSpy closed(m_panel.get(), &StudyPanel::closeRequested);
        item(u"Schädel"_s)->setSelected(true);
        for (QAction *action : m_panel->findChildren<QAction *>()) {
            if (action->text().remove(u'&').startsWith(u"Close")) {
                action->trigger();
            }
        }
        QCOMPARE(closed.size(), 2);
        QCOMPARE(closed[0][0].toStringList(), QStringList{u"2.25.2.1"_s});
        QStringList all = closed[1][0].toStringList();
        all.sort();
        QCOMPARE(all, (QStringList{u"2.25.2.1"_s, u"2.25.2.9"_s}));
    }

    void attributesOfTheFirstImage()
    {
        m_panel->setAttributesShown(true);
        item(u"Schädel"_s)->setSelected(true);
        auto &view = *m_panel->findChild<AttributesView *>();
        QTRY_VERIFY(view.text().contains(u"(0010,0010)\tPatient Name\tPN\tDoe^Jane\n"_s));
        QVERIFY(view.text().contains(u"(7FE0,0010)\tPixel Data\tOW\t(24 bytes)\n"_s));
        view.findChild<SearchField *>()->setText(u"rows"_s);
        QCOMPARE(view.text(), u"(0028,0010)\tRows\tUS\t3\n"_s);
        tree().clearSelection();
        QCOMPARE(view.text(), QString());
    }

    void picturesComeWithoutAsking()
    {
        m_panel->resize(300, 800);
        m_panel->show();
        QTRY_VERIFY(m_panel->isSettled() && !item(u"Nativ"_s)->icon(0).isNull());
        QTRY_VERIFY(!item(u"Schädel"_s)->icon(0).isNull());
        m_session->close();
        QCOMPARE(tree().topLevelItemCount(), 0);
    }

private:
    [[nodiscard]] StudyTree &tree() { return m_panel->tree(); }

    void addSeries(const std::string &uid, std::initializer_list<int> instances,
        const std::string &name, const std::string &id, const std::string &study,
        const std::string &description)
    {
        for (const int instance : instances) {
            m_files.addSlice(++m_numFiles, instance,
                {{"G0020-0013", std::to_string(instance)}, {"G0020-000E", uid},
                    {"G0020-000D", study}, {"G0010-0010", name}, {"G0010-0020", id},
                    {"G0008-103E", description}, {"G0008-0005", "ISO_IR 192"}});
        }
    }

    QTreeWidgetItem *item(const QString &text)
    {
        for (QTreeWidgetItemIterator each(&tree()); *each != nullptr; ++each) {
            if ((*each)->text(0).contains(text, Qt::CaseInsensitive)) {
                return *each;
            }
        }
        qFatal("there is no such row");
    }

    /// Identifiers of the series shown; of what cannot be opened the modality.
    QStringList shownSeries()
    {
        QStringList found;
        for (QTreeWidgetItemIterator each(&tree(), QTreeWidgetItemIterator::NotHidden);
             *each != nullptr; ++each) {
            const QString uid = (*each)->data(0, Qt::UserRole).toString();
            if ((*each)->childCount() == 0) {
                found += uid.isEmpty() ? (*each)->text(0).left(2) : uid;
            }
        }
        found.sort();
        return found;
    }

    PrivateSettings m_settings;
    DicomFixture m_files;
    int m_numFiles = 0;
    std::unique_ptr<StudySession> m_session;
    std::unique_ptr<StudyPanel> m_panel;
};

QTEST_MAIN(tst_StudyPanel)
#include "tst_StudyPanel.moc"
