#include "framework/tools/ExActionUI.h"

#include "framework/dispatch/ClientCall.h"
#include "framework/tools/ActionHost.h"
#include "framework/tools/ActiveViewer.h"
#include "framework/tools/ExDecoration.h"
#include "framework/tools/ExHotKeys.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/ExToolLogger.h"
#include "framework/viewers/ExBaseViewer.h"
#include "platform/properties/KxPropertyPool.h"
// Actions ask the application object for what only the client knows: decoration, settings editors,
// the list of actions.
#include "framework/application/ExApplication.h"

#include <QMenu>
#include <QPushButton>
#include <QShortcutEvent>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr const char *separatorKey = "separator";

const ExDecoration *decorationFor(const char *key)
{
    return ExApplication::hasInstance() ? ExApplication::instance().decoration(key) : nullptr;
}

/// Keys of the numeric pad are written with a prefix that the toolkit's text form does not have.
QKeySequence sequenceFromText(const char *text)
{
    const QString numericPad = QStringLiteral("NUM+");
    QString keys = QString::fromLocal8Bit(text);
    const qsizetype position = keys.indexOf(numericPad);
    if (position < 0) {
        return QKeySequence(keys);
    }
    const QKeySequence sequence(keys.remove(position, numericPad.size()));
    return sequence.isEmpty() ? sequence : QKeySequence(sequence[0]);
}

bool showsShortCut(const ExTool *tool, const QKeySequence &sequence)
{
    const std::vector<ExToolUI *> &uis = tool->getUIs();
    return std::any_of(uis.begin(), uis.end(), [&sequence](const ExToolUI *ui) {
        return ui->action() != nullptr && ui->action()->shortcut() == sequence;
    });
}

bool isRealAction(const QAction *action)
{
    return !action->isSeparator();
}

} // namespace

ExActionUI::ExActionUI()
    : QAction(actionHost())
{
    if (ExApplication::hasInstance()) {
        ExApplication::instance().registerActionUI(this);
    }
}

ExActionUI::~ExActionUI() = default;

ExActionUI *ExActionUI::cloneAction(ExTool &tool)
{
    auto *const created = new ExActionUI;
    created->m_localShortCut = tool.getUI() != nullptr;
    if (auto *const owner = qobject_cast<QWidget *>(created->parent())) {
        owner->addAction(created);
    }
    created->setTool(&tool);
    return created;
}

ExActionUI *ExActionUI::createAction(ExTool &tool)
{
    ExToolUI *const ui = tool.getUI() == nullptr ? cloneAction(tool) : tool.getUI();
    tool.updateUI(nullptr);
    return dynamic_cast<ExActionUI *>(ui);
}

QAction *ExActionUI::createAction(const char *key, QWidget *parent)
{
    if (qstricmp(key, separatorKey) == 0) {
        auto *const separator = new QAction(parent);
        separator->setSeparator(true);
        return separator;
    }
    ExTool *const tool = ExTool::getToolByDecorationKey(key, true);
    return tool == nullptr ? nullptr : createAction(*tool);
}

QList<QAction *> ExActionUI::createActions(const QStringList &keys, QWidget *parent)
{
    QList<QAction *> actions;
    for (const QString &key : keys) {
        if (QAction *const action = createAction(key.toLocal8Bit().constData(), parent)) {
            actions.append(action);
        }
    }
    return actions;
}

QMenu *ExActionUI::createMenu(const QString &title, const QStringList &keys, QWidget *parent)
{
    auto menu = std::make_unique<QMenu>(title, parent);
    const QList<QAction *> actions = createActions(keys, menu.get());
    menu->addActions(actions);
    return std::any_of(actions.begin(), actions.end(), isRealAction) ? menu.release() : nullptr;
}

ExActionUI *ExActionUI::bind(QToolButton *button, ExTool &tool)
{
    ExActionUI *const action = createAction(tool);
    if (button != nullptr && action != nullptr) {
        button->setDefaultAction(action);
    }
    return action;
}

ExActionUI *ExActionUI::bind(QPushButton *button, ExTool &tool)
{
    ExActionUI *const action = createAction(tool);
    if (button != nullptr && action != nullptr) {
        QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    }
    return action;
}

QAction *ExActionUI::bind(QToolButton *button, const char *key)
{
    QAction *const action = createAction(key, button);
    if (button != nullptr && action != nullptr) {
        button->setDefaultAction(action);
    } else if (button != nullptr) {
        button->hide();
    }
    return action;
}

void ExActionUI::showShortCutList()
{
    ExHotKeys::showHotKeyList();
}

bool ExActionUI::isActive() const
{
    return isChecked();
}

QAction *ExActionUI::action() const
{
    return const_cast<ExActionUI *>(this);
}

void ExActionUI::setTool(ExTool *tool)
{
    if (tool == getTool()) {
        return;
    }
    if (getTool() != nullptr) {
        QObject::disconnect(this, nullptr, this, nullptr);
    }
    ExToolUI::setTool(tool);
    if (tool == nullptr) {
        return;
    }
    setCheckable(tool->isActivatable());
    if (tool->isActivatable()) {
        QObject::connect(this, &QAction::toggled, this, &ExActionUI::slot_actionToggled);
    } else {
        QObject::connect(this, &QAction::triggered, this, &ExActionUI::slot_actionTriggered);
    }
    const char *const key = tool->decorationKey();
    if (*key != '\0') {
        const ExDecoration *const decoration = decorationFor(key);
        if (decoration != nullptr) {
            // That of another tool: setShortCut() would take the present one's hot key for it.
            setShortcut(QKeySequence());
        }
        setDecoration(decoration, key);
    }
}

void ExActionUI::update(ExBaseViewer *viewer)
{
    const ExTool *const tool = getTool();
    if (tool == nullptr) {
        return;
    }
    const QSignalBlocker blocker(this);
    const ExDecoration *const decoration = decorationFor(tool->decorationKey());
    if (m_stateDependentText && decoration != nullptr) {
        const QString stateText = decoration->text(tool->decorationKey(), tool->isActive());
        if (!stateText.isEmpty()) {
            setText(stateText);
        }
    }
    setChecked(tool->isActive());
    setEnabled(tool->isEnabled(viewer == nullptr ? activeViewer() : viewer));
}

void ExActionUI::setDecoration(const ExDecoration *decoration, const char *key)
{
    if (decoration == nullptr) {
        return;
    }
    if (!decoration->isKnown(key)) {
        std::printf("WARNING - missing decoration for %s\n", key);
    }
    const QString shortCut = decoration->shortCut(key);
    const QIcon newIcon = decoration->icon(key);
    const QString onText = decoration->text(key, true);
    const QString offText = decoration->text(key, false);
    const QString tip = decoration->toolTip(key);
    const QString &stateText = isChecked() ? onText : offText;
    if (!stateText.isEmpty()) {
        setText(stateText);
        setIconText(stateText);
    }
    m_stateDependentText = onText != offText;
    setIcon(newIcon);
    setToolTip(tip);
    setShortCut(shortCut.toLocal8Bit().constData());
    setObjectName(QString::fromUtf8(key));
}

void ExActionUI::setShortCut(const char *text)
{
    const QKeySequence sequence = sequenceFromText(text);
    if (m_localShortCut && !sequence.isEmpty()) {
        setShortcut(sequence);
        setShortcutContext(Qt::WidgetShortcut);
        return;
    }
    if (!shortcut().isEmpty()) {
        setShortcut(QKeySequence());
        setShortcutContext(Qt::WidgetShortcut);
        ExHotKeys::setHotKey(getTool(), QKeySequence());
    }
    if (!sequence.isEmpty()) {
        setShortcut(sequence);
        ExHotKeys::setHotKey(getTool(), sequence);
    }
}

bool ExActionUI::event(QEvent *event)
{
    if (event->type() != QEvent::Shortcut || !static_cast<QShortcutEvent *>(event)->isAmbiguous()) {
        return QAction::event(event);
    }
    // Of several actions with the keys the toolkit tells one, by turns, and expects it to do
    // nothing.
    if (isSharedWithOtherTools()) {
        ExHotKeys::triggerHotKey(shortcut(), activeViewer());
    } else {
        activate(QAction::Trigger);
    }
    return true;
}

bool ExActionUI::isSharedWithOtherTools() const
{
    const std::vector<ExTool *> tools = ExHotKeys::hotKeyTools();
    return std::any_of(tools.begin(), tools.end(), [this](const ExTool *tool) {
        return tool != getTool() && showsShortCut(tool, shortcut());
    });
}

void ExActionUI::slot_actionToggled(bool on)
{
    actionToggled(on);
}

void ExActionUI::slot_actionTriggered(bool on)
{
    actionTriggered(on);
}

void ExActionUI::actionToggled(bool on)
{
    const McHandle<ExTool> tool(getTool());
    if (!tool) {
        return;
    }
    ExToolLogger::logToggle(tool, on);
    if (on || !tool->isStandard()) {
        ClientCall::protect("A tool", [&tool] { return tool->setActive(!tool->isActive()); });
    } else {
        update(nullptr);
    }
}

void ExActionUI::actionTriggered(bool /*on*/)
{
    const McHandle<ExTool> tool(getTool());
    if (tool) {
        ExToolLogger::logTrigger(tool);
        ClientCall::protect("A tool", [&tool] { return tool->setActive(true); });
    }
}

void ExActionUI::slot_editProperties()
{
    const ExTool *const tool = getTool();
    if (tool == nullptr || !ExApplication::hasInstance()) {
        return;
    }
    const std::list<KxVariant *> properties = KxPropertyPool::instance().properties();
    if (tool->getPropertyKeys().isEmpty()) {
        ExApplication::instance().propertyBrowser(properties, QRegularExpression(), false);
    } else {
        ExApplication::instance().editToolProperties(properties, tool->getPropertyKeys());
    }
}
