#include "framework/tools/ExToolBar.h"

#include "framework/tools/ActionHost.h"
#include "framework/tools/ExPopupUI.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/SpacerWidget.h"
#include "platform/toolkit/QxStyleFactory.h"
// The application object decides what the context menus of tools hold, and is told of the pop-ups.
#include "framework/application/ExApplication.h"
#include "framework/application/ExUIRegistry.h"

#include <QActionEvent>
#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <QWidgetAction>

#include <cstdio>

namespace {

constexpr int iconExtent = 32;

/// Menu of a group's members. Belongs to the action that opens it, wherever that is shown.
class MemberMenu : public QMenu
{
public:
    using QMenu::QMenu;
};

/// Makes a spacer for every bar that shows it.
class SpacerAction : public QWidgetAction
{
public:
    SpacerAction(int size, QObject *parent)
        : QWidgetAction(parent)
        , m_size(size)
    { }

protected:
    QWidget *createWidget(QWidget *parent) override
    {
        auto *const spacer = new SpacerWidget(m_size, parent);
        if (const auto *const bar = qobject_cast<QToolBar *>(parent)) {
            QObject::connect(
                bar, &QToolBar::orientationChanged, spacer, &SpacerWidget::updateOrientation);
            spacer->updateOrientation(bar->orientation());
        }
        return spacer;
    }

private:
    int m_size;
};

/// The tool action at a place in a menu, or that of a tool button; else null.
ExActionUI *toolActionAt(const QWidget *widget, const QPoint &position)
{
    const auto *const menu = qobject_cast<const QMenu *>(widget);
    const auto *const button = qobject_cast<const QToolButton *>(widget);
    QAction *const action = menu != nullptr ? menu->actionAt(position)
        : button != nullptr                 ? button->actions().value(0)
                                            : nullptr;
    auto *const toolAction = qobject_cast<ExActionUI *>(action);
    return toolAction == nullptr || toolAction->getTool() == nullptr ? nullptr : toolAction;
}

void separate(QMenu &menu)
{
    if (!menu.isEmpty()) {
        menu.addSeparator();
    }
}

void addProperties(QMenu &menu, ExActionUI &action)
{
    const bool areHidden = ExApplication::hasInstance()
        && ExApplication::instance().toolContextMenuHidesProperties();
    if (!areHidden && !action.getTool()->getPropertyKeys().isEmpty()) {
        menu.addAction(ExToolBar::tr("Properties..."), &action, &ExActionUI::slot_editProperties);
    }
}

void addIdentification(QMenu &menu, const ExActionUI &action)
{
    if (!ExApplication::hasInstance()
        || !ExApplication::instance().toolContextMenuShowsIdentification()) {
        return;
    }
    separate(menu);
    // What follows a tab stands in the column of the shortcuts.
    const QString key = QString::fromLocal8Bit(action.getTool()->decorationKey());
    const QString shortCut = action.shortcut().toString(QKeySequence::NativeText);
    QAction *const entry
        = menu.addAction(shortCut.isEmpty() ? key : QString(key % u'\t' % shortCut));
    entry->setEnabled(false);
}

void addHelp(QMenu &menu, const ExActionUI &action)
{
    QAction *const help = ExApplication::hasInstance()
        ? ExApplication::instance().createShowHelpAction(
            u"Tool." % QString::fromLocal8Bit(action.getTool()->decorationKey()))
        : nullptr;
    if (help != nullptr) {
        separate(menu);
        help->setParent(&menu); // Made anew for every menu.
        menu.addAction(help);
    }
}

void makeKnown(ExActionUI *action)
{
    if (ExUIRegistry *const registry
        = ExApplication::hasInstance() ? ExApplication::instance().uiRegistry() : nullptr) {
        registry->registerAction(action, action->objectName());
    }
}

/// An action may be shown by several bars and outlive them: its menu goes with it, not with a bar.
void giveMenu(ExActionUI &action, QMenu *menu)
{
    auto *const previous = dynamic_cast<MemberMenu *>(action.menu());
    action.setMenu(menu);
    if (previous != nullptr) {
        previous->deleteLater(); // It may be open.
    }
    QObject::connect(&action, &QObject::destroyed, menu, &QObject::deleteLater);
}

/// A menu cannot open from one of its own entries: a clone stands there for the action that opens
/// it.
void replaceInMenu(QMenu &menu, ExActionUI &opener)
{
    if (menu.actions().contains(&opener)) {
        ExActionUI *const clone = ExActionUI::cloneAction(*opener.getTool());
        clone->setParent(&menu);
        clone->update(nullptr);
        menu.insertAction(&opener, clone);
        menu.removeAction(&opener);
    }
}

QByteArray escaped(const QString &text)
{
    return text.toHtmlEscaped().toLocal8Bit();
}

/// What a screen reader says of a button.
QString spokenName(const QAction &action)
{
    QString text = action.text();
    text.replace(QStringLiteral("&&"), QString(QChar(0)));
    text.remove(u'&');
    text.replace(QChar(0), u'&');
    return !text.isEmpty()            ? text
        : !action.toolTip().isEmpty() ? action.toolTip()
                                      : action.objectName();
}

} // namespace

ExToolBar::ExToolBar(QWidget *parent)
    : QToolBar(parent)
{
    initialize();
}

ExToolBar::ExToolBar(const QString &title)
    : QToolBar(title)
{
    setObjectName(title);
    setToolTip(title);
    initialize();
}

ExToolBar::ExToolBar(const QToolBar &other)
    : QToolBar(other.windowTitle())
{
    setObjectName(other.objectName());
    setToolTip(other.toolTip());
    setToolButtonStyle(other.toolButtonStyle());
    if (const auto *const bar = qobject_cast<const ExToolBar *>(&other)) {
        m_customDefined = bar->m_customDefined;
    }
    const QList<QAction *> actions = other.actions();
    for (QAction *action : actions) {
        addAction(action);
        addToolsContextMenu(action);
    }
    initialize();
}

ExToolBar::ExToolBar(const ExToolBar &other)
    : ExToolBar(static_cast<const QToolBar &>(other))
{ }

ExToolBar::~ExToolBar() = default;

void ExToolBar::initialize()
{
    QToolBar::setVisible(false);
    setAllowedAreas(Qt::AllToolBarAreas);
    // A press beside the buttons is for the window around the bar, which lists its bars.
    setContextMenuPolicy(Qt::NoContextMenu);
    setCursor(Qt::ArrowCursor);
    setIconSize({iconExtent, iconExtent});
    m_toolBarVisible = !isHidden();
    applyColors();
    QObject::connect(&QxStyleFactory::instance(), &QxStyleFactory::paletteChanged, this,
        &ExToolBar::applyColors);
    setBringUp(true);
}

void ExToolBar::applyColors()
{
    const QxStyleFactory &factory = QxStyleFactory::instance();
    QPalette colors; // What it does not set comes from the widgets around.
    QString sheet;
    QColor color;
    if (factory.userDefinedColor("KORVATE_ExToolBarBackground", color)) {
        colors.setColor(QPalette::Window, color);
        // The style's own sheet would paint over a colour of the client's.
        if (!qApp->styleSheet().isEmpty()
            && color != factory.color(QxStyleFactory::ColorRole::Panel)) {
            sheet = u"ExToolBar { background: " % color.name() % u"; }";
        }
    }
    if (factory.userDefinedColor("HALDO_ViewerControlArrow", color)) {
        for (const QPalette::ColorRole role : {QPalette::Light, QPalette::Shadow, QPalette::Mid}) {
            colors.setColor(role, color);
        }
        if (factory.userDefinedColor("HALDO_BackViolet", color)) {
            colors.setColor(QPalette::Base, color);
            colors.setColor(QPalette::Button, color);
        }
    }
    setPalette(colors);
    if (sheet != styleSheet()) {
        setStyleSheet(sheet);
    }
}

void ExToolBar::addToolsContextMenu(QAction *action)
{
    if (QWidget *const widget = widgetForAction(action)) {
        widget->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(widget, &QWidget::customContextMenuRequested, this,
            &ExToolBar::showToolsContextMenu, Qt::UniqueConnection);
    }
}

ExActionUI *ExToolBar::addTool(ExTool &tool, bool toolBarFixed)
{
    ExActionUI *const action = ExActionUI::createAction(tool);
    if (action != nullptr) {
        addAction(action);
        addToolsContextMenu(action);
        appendTool(&tool, toolBarFixed);
    }
    return action;
}

void ExToolBar::removeActionUI(ExActionUI *action)
{
    if (action != nullptr) {
        removeAction(action);
        removeTool(action->getTool());
    }
}

ExActionUI *ExToolBar::addToolPopup(ExToolGroup &group, ExTool *tool)
{
    if (group.getTools().empty()) {
        return tool == nullptr ? nullptr : addTool(*tool, false);
    }
    QMenu *const menu = createMemberMenu(group);
    ExActionUI *const action = groupAction(group, tool);
    replaceInMenu(*menu, *action);
    addAction(action);
    addToolsContextMenu(action);
    auto *const button = qobject_cast<QToolButton *>(widgetForAction(action));
    if (button != nullptr) {
        // Before the action has the menu: the button would lose it as soon as it got it.
        button->setMenu(menu);
    }
    giveMenu(*action, menu);
    if (button != nullptr) {
        button->setPopupMode(
            group.getUseInstantPopup() ? QToolButton::InstantPopup : QToolButton::MenuButtonPopup);
    }
    makeKnown(action);
    return action;
}

QMenu *ExToolBar::createMemberMenu(const ExToolGroup &group)
{
    auto *const menu = new MemberMenu(actionHost());
    for (const McHandle<ExTool> &member : group.getTools()) {
        if (ExActionUI *const action = ExActionUI::createAction(*member)) {
            menu->addAction(action);
        }
    }
    menu->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(
        menu, &QWidget::customContextMenuRequested, this, &ExToolBar::showToolsContextMenu);
    QObject::connect(menu, &QMenu::aboutToShow, this, &ExToolBar::subToolMenuAboutToShow);
    return menu;
}

ExActionUI *ExToolBar::groupAction(ExToolGroup &group, ExTool *tool)
{
    if (auto *const present = dynamic_cast<ExActionUI *>(group.getGroupUI())) {
        return present;
    }
    ExActionUI *action = !group.getBringUp() && tool != nullptr ? addTool(*tool, false) : nullptr;
    if (action == nullptr) {
        action = ExPopupUI::create(*group.getTools().front());
    }
    group.setGroupUI(action);
    return action;
}

void ExToolBar::addPopup(ExToolBar *other)
{
    const ExActionUI *const action = other == nullptr ? nullptr : addToolPopup(*other, nullptr);
    if (action != nullptr) {
        action->menu()->setObjectName(other->objectName());
    }
}

void ExToolBar::addSpacer(int size)
{
    addAction(new SpacerAction(size, this));
}

void ExToolBar::setVisible(bool visible)
{
    m_toolBarVisible = visible;
    QToolBar::setVisible(visible);
}

void ExToolBar::dump() const
{
    std::printf("    <ToolBar Id=\"%s\" Label=\"%s\">\n", escaped(objectName()).constData(),
        escaped(windowTitle()).constData());
    for (const McHandle<ExTool> &tool : getTools()) {
        if (tool) {
            std::printf("        <Tool Id=\"%s\" />\n",
                escaped(QString::fromLocal8Bit(tool->decorationKey())).constData());
        }
    }
    std::printf("    </ToolBar>\n");
}

bool ExToolBar::event(QEvent *event)
{
    const bool isHover = event->type() == QEvent::HoverMove;
    if (isHover) {
        keepCursor();
    }
    const bool handled = QToolBar::event(event);
    // Beside the handle the toolkit takes the cursor away, whoever has set it; a viewer's cursor is
    // not to shine through.
    if (isHover && !hasHandleCursor()) {
        setCursor(m_ownCursor);
    }
    return handled;
}

void ExToolBar::keepCursor()
{
    if (!hasHandleCursor()) {
        m_ownCursor = testAttribute(Qt::WA_SetCursor) ? cursor() : QCursor(Qt::ArrowCursor);
    }
}

bool ExToolBar::hasHandleCursor() const
{
    return testAttribute(Qt::WA_SetCursor) && cursor().shape() == Qt::SizeAllCursor;
}

void ExToolBar::actionEvent(QActionEvent *event)
{
    QToolBar::actionEvent(event);
    auto *const button = event->type() == QEvent::ActionRemoved
        ? nullptr
        : qobject_cast<QToolButton *>(widgetForAction(event->action()));
    const QString name = button == nullptr ? QString() : spokenName(*event->action());
    if (button != nullptr && button->accessibleName() != name) {
        button->setAccessibleName(name);
    }
}

void ExToolBar::showToolsContextMenu(const QPoint &position)
{
    auto *const widget = qobject_cast<QWidget *>(sender());
    ExActionUI *const action = toolActionAt(widget, position);
    if (action == nullptr) {
        return;
    }
    const McHandle<ExTool> tool(action->getTool()); // The action may go while the menu is open.
    QMenu menu;
    addProperties(menu, *action);
    addIdentification(menu, *action);
    addHelp(menu, *action);
    if (!menu.isEmpty()) {
        menu.exec(widget->mapToGlobal(position));
    }
}

void ExToolBar::subToolMenuAboutToShow()
{
    const auto *const menu = qobject_cast<QMenu *>(sender());
    const QList<QAction *> actions = menu == nullptr ? QList<QAction *>() : menu->actions();
    for (QAction *action : actions) {
        const auto *const toolAction = qobject_cast<ExActionUI *>(action);
        if (toolAction != nullptr && toolAction->getTool() != nullptr) {
            toolAction->getTool()->updateUI(nullptr);
        }
    }
}
