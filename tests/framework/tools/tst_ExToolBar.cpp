#include "framework/tools/ExPopupUI.h"
#include "framework/tools/ExToolBar.h"
#include "platform/toolkit/QxStyleFactory.h"
#include "tests/framework/tools/FakeTool.h"

#include <cstdio>
#include <unistd.h>

namespace {

QString texts(const QWidget &widget)
{
    QStringList all;
    const QList<QAction *> actions = widget.actions();
    for (const QAction *action : actions) {
        all.append(action->isSeparator() ? u"-"_s : action->text());
    }
    return all.join(u'|');
}

/// Texts of the next menu to open, which it closes.
class NextMenu
{
public:
    NextMenu()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            if (QWidget *const popup = QApplication::activePopupWidget()) {
                m_timer.stop();
                shown = texts(*popup);
                popup->close();
            }
        });
        m_timer.start(0);
    }
    QString shown = u"none"_s;

private:
    QTimer m_timer;
};

QColor face(const QAction &action)
{
    return action.icon().pixmap(QSize(32, 32)).toImage().pixelColor(0, 0);
}

} // namespace

class tst_ExToolBar : public TestOfTools
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        m_bar = std::make_unique<ExToolBar>(u"Bar"_s);
        m_bar->show();
    }
    void cleanup()
    {
        m_bar.reset();
        tearDown();
    }

    void copies()
    {
        QVERIFY(!ExToolBar(nullptr).isToolBarVisible() && m_bar->isToolBarVisible());
        m_bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
        m_bar->setCustomDefined(true);
        m_bar->addTool(*makeTool("Zoom"), false);
        m_bar->addSpacer(7);
        ExToolBar copy(*m_bar);
        QCOMPARE(QStringList({copy.windowTitle(), copy.objectName(), copy.toolTip(), texts(copy)}),
            QStringList({u"Bar"_s, u"Bar"_s, u"Bar"_s, u"&Zoom|"_s}));
        QVERIFY(copy.toolButtonStyle() == Qt::ToolButtonTextOnly && copy.customDefined());
        copy.setOrientation(Qt::Vertical);
        QCOMPARE(copy.widgetForAction(copy.actions().constLast())->minimumSize(), QSize(0, 7));
        QCOMPARE(copy.getTools().size(), std::size_t(0)); // No second address of the bar's group.
    }

    void colors()
    {
        const std::pair<const char *, QColor> own[] = {{"KORVATE_ExToolBarBackground", Qt::red},
            {"HALDO_ViewerControlArrow", Qt::green}, {"HALDO_BackViolet", Qt::blue}};
        QxStyleFactory &factory = QxStyleFactory::instance();
        factory.setCurrentStyle(u"Movara Medium"_s);
        for (const auto &[key, color] : own) {
            factory.setUserDefinedColor(key, color);
        }
        const QPalette palette = m_bar->palette();
        QVERIFY(palette.window() == Qt::red && palette.shadow() == Qt::green);
        QVERIFY(palette.button() == Qt::blue);
        QCOMPARE(m_bar->grab().toImage().pixelColor(1, 1), QColor(Qt::red));
        for (const auto &[key, color] : own) {
            factory.setUserDefinedColor(key, {});
        }
        QVERIFY(m_bar->grab().toImage().pixelColor(1, 1) != QColor(Qt::red));
        factory.setCurrentStyle(u"Native Style"_s);
    }

    void cursorStaysAsItWasSet()
    {
        QWidget window; // Only in one does the toolkit leave a bar without a cursor.
        window.setCursor(Qt::WaitCursor);
        m_bar->setParent(&window);
        QHoverEvent hover(QEvent::HoverMove, QPointF(1, 1), QPointF(), QPointF());
        m_bar->setCursor(Qt::CrossCursor);
        for (const Qt::CursorShape shape : {Qt::CrossCursor, Qt::ArrowCursor}) {
            QApplication::sendEvent(m_bar.get(), &hover);
            QApplication::sendEvent(m_bar.get(), &hover);
            QCOMPARE(m_bar->cursor().shape(), shape);
            m_bar->unsetCursor();
        }
        m_bar->setParent(nullptr);
    }

    void addingAndRemoving()
    {
        FakeTool *const zoom = makeTool("Zoom");
        ExActionUI *const action = m_bar->addTool(*zoom, true);
        m_bar->addTool(*makeTool("<Pan>"), false);
        QVERIFY(m_bar->getToolBarFixed(*zoom));
        QCOMPARE(m_bar->widgetForAction(action)->accessibleName(), u"Zoom"_s);
        action->setText(u"A && &B"_s);
        QCOMPARE(m_bar->widgetForAction(action)->accessibleName(), u"A & B"_s);
        const McHandle<FakeTool> foreign = makeTool("Foreign");
        FakeUI ui;
        ui.setTool(foreign);
        QCOMPARE(m_bar->addTool(*foreign, false), nullptr);
        QCOMPARE(dumped(),
            QByteArray("    <ToolBar Id=\"Bar\" Label=\"Bar\">\n        <Tool Id=\"Zoom\" />\n"
                       "        <Tool Id=\"&lt;Pan&gt;\" />\n    </ToolBar>\n"));
        m_bar->removeActionUI(action);
        m_bar->removeActionUI(nullptr);
        QVERIFY(texts(*m_bar) == u"&<Pan>"_s && m_bar->getTools().size() == 1);
        QCOMPARE(zoom->getUI(), action); // Only off the bar.
    }

    void popupShowsTheLastActivated()
    {
        const McHandle<FakeViewer> viewer = addActiveViewer();
        ExToolBar measure(u"Measure"_s);
        FakeTool *const distance = makeTool("Distance");
        FakeTool *const angle = makeTool("Angle");
        measure.addTool(*distance, false);
        measure.addTool(*angle, false);
        measure.setExclusive(true);
        m_bar->addPopup(&measure);
        auto *const popup = dynamic_cast<ExPopupUI *>(measure.getGroupUI());
        QVERIFY(popup != nullptr && popup == m_bar->actions().constFirst());
        QCOMPARE(QString(popup->menu()->objectName() % u": " % texts(*popup->menu())),
            u"Measure: &Distance|&Angle"_s);
        QCOMPARE(button(popup)->popupMode(), QToolButton::MenuButtonPopup);
        QCOMPARE(button(popup)->menu(), popup->menu());
        click(popup);
        QVERIFY(distance->isActive() && popup->isChecked());
        angle->setActive(true);
        QVERIFY(texts(*m_bar) == u"&Angle"_s && popup->isChecked() && !distance->isActive());
        click(popup);
        QVERIFY(!angle->isActive() && !popup->isChecked());

        measure.setUseInstantPopup(true);
        const QPointer<QMenu> menu = popup->menu();
        QCOMPARE(m_bar->addToolPopup(measure, angle), popup); // The group has its button already.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(menu.isNull() && button(popup)->popupMode() == QToolButton::InstantPopup);
        QCOMPARE(button(popup)->menu(), popup->menu());
        angle->enabled = false;
        viewer->imageSets[0].reset();
        QCOMPARE(click(popup), u"&Distance|&Angle"_s);
        QVERIFY(!ExActionUI::createAction(*angle)->isEnabled()); // Refreshed by the menu.
    }

    void popupOfOneTool()
    {
        ExToolGroup group;
        QCOMPARE(m_bar->addToolPopup(group, nullptr), nullptr);
        QCOMPARE(texts(*m_bar), QString());
        FakeTool *const pan = makeTool("Pan");
        QVERIFY(m_bar->addToolPopup(group, pan)->menu() == nullptr && !group.getGroupUI());
        FakeTool *const zoom = makeTool("Zoom");
        group.appendTool(zoom, false);
        group.appendTool(pan, false);
        ExActionUI *const action = m_bar->addToolPopup(group, zoom);
        QVERIFY(action == zoom->getUI() && action == group.getGroupUI());
        QCOMPARE(texts(*action->menu()), u"&Zoom|&Pan"_s);
        QVERIFY(!action->menu()->actions().contains(action)); // A menu in itself would never end.
    }

    void clickWhereTheToolCannotBeUsed()
    {
        ExToolGroup group;
        FakeTool *const zoom = makeTool("Zoom");
        FakeTool *const print = makeTool("Print");
        print->activatable = false;
        group.appendTool(zoom, false);
        group.appendTool(print, false);
        ExActionUI *const popup = m_bar->addToolPopup(group, nullptr);
        const QColor usable = face(*popup);
        for (FakeTool *tool : {zoom, print}) {
            popup->setTool(tool);
            tool->enabled = false;
            tool->updateUI(nullptr);
            QVERIFY(popup->isEnabled() && face(*popup) != usable);
            for (const QPoint &pointer : {button(popup)->mapToGlobal(QPoint(4, 4)), QPoint()}) {
                QCursor::setPos(pointer); // The menu of the button, or that of the action.
                QCOMPARE(click(popup), u"&Zoom|&Print"_s);
                QVERIFY(!popup->isChecked() && !button(popup)->isChecked());
            }
        }
        QCOMPARE(takeLog(), QString());
    }

    void contextMenu()
    {
        // p: the tool has settings, P: they are not to be shown, i: identification, h: help
        const std::pair<QString, QString> rows[]
            = {{QString(), u"none"_s}, {u"i"_s, u"Zoom\tCtrl+Z"_s}, {u"p"_s, u"Properties..."_s},
                {u"pPh"_s, u"Help..."_s}, {u"pih"_s, u"Properties...|-|Zoom\tCtrl+Z|-|Help..."_s}};
        FakeTool *const zoom = makeTool("Zoom");
        m_app->decorations.entries[u"Zoom"_s].shortCut = u"Ctrl+Z"_s;
        ExToolGroup group;
        group.appendTool(zoom, false);
        ExActionUI *const popup = m_bar->addToolPopup(group, nullptr);
        QMenu *const menu = popup->menu();
        menu->resize(menu->sizeHint());
        const QPoint place = menu->actionGeometry(menu->actions().constFirst()).center();
        for (const auto &[asked, expected] : rows) {
            if (asked == u"p"_s) { // The first one of those with settings
                zoom->addPropertyKey(QRegularExpression(u"^Zoom"_s));
            }
            m_app->hidesProperties = asked.contains(u'P');
            m_app->showsIdentification = asked.contains(u'i');
            m_app->hasNoHelp = !asked.contains(u'h');
            for (QWidget *widget : std::initializer_list<QWidget *>{button(popup), menu}) {
                const NextMenu next;
                Q_EMIT widget->customContextMenuRequested(place);
                QCOMPARE(next.shown, expected);
            }
        }
    }

private:
    FakeTool *makeTool(const char *key) const
    {
        FakeTool *const tool = ::makeTool(key);
        QPixmap red(32, 32);
        red.fill(Qt::red);
        const QString text = u'&' % QString::fromUtf8(key);
        m_app->decorations.entries[QString::fromUtf8(key)] = {{}, text, text, {}, red};
        return tool;
    }
    QToolButton *button(QAction *action) const
    {
        return qobject_cast<QToolButton *>(m_bar->widgetForAction(action));
    }
    /// The menu that a click on an action's button opens, if any.
    QString click(QAction *action) const
    {
        const NextMenu next;
        QTest::mouseClick(button(action), Qt::LeftButton, {}, {4, 4});
        return next.shown;
    }
    QByteArray dumped() const
    {
        QTemporaryFile file;
        const int before = file.open() ? dup(STDOUT_FILENO) : -1;
        std::fflush(stdout);
        dup2(file.handle(), STDOUT_FILENO);
        m_bar->dump();
        std::fflush(stdout);
        dup2(before, STDOUT_FILENO);
        close(before);
        file.seek(0);
        return file.readAll();
    }

    std::unique_ptr<ExToolBar> m_bar;
};

QTEST_MAIN(tst_ExToolBar)
#include "tst_ExToolBar.moc"
