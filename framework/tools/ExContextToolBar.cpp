#include "framework/tools/ExContextToolBar.h"

#include "framework/tools/ActionHost.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/ExToolBar.h"

#include <QEvent>
#include <QLabel>
#include <QWidgetAction>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// Distance of the bar from the edges of the widget, and of the hint from the bar, in pixels.
constexpr int gap = 6;
constexpr int hintMargin = 2;

/// Shows a widget of somebody else, and gives it back. The toolkit's own action for widgets would
/// delete it instead.
class BorrowedWidgetAction : public QWidgetAction
{
public:
    BorrowedWidgetAction(QWidget *widget, QObject *parent)
        : QWidgetAction(parent)
        , m_widget(widget)
    {
        QObject::connect(widget, &QObject::destroyed, this, &QObject::deleteLater);
    }

    /// Without this the bar keeps the widget, and takes it with it.
    void giveBack() { m_isGivenBack = true; }

protected:
    QWidget *createWidget(QWidget *parent) override
    {
        // The menu of what has no room on the bar asks for one as well.
        if (!createdWidgets().isEmpty()) {
            return nullptr;
        }
        m_widget->setParent(parent);
        return m_widget;
    }
    void deleteWidget(QWidget *widget) override
    {
        widget->hide();
        if (m_isGivenBack) {
            widget->setParent(nullptr);
        }
    }

private:
    QWidget *m_widget;
    bool m_isGivenBack = false;
};

void removeFrom(ExToolBar &bar, QAction *action)
{
    auto *const borrowed = dynamic_cast<BorrowedWidgetAction *>(action);
    if (borrowed != nullptr) {
        borrowed->giveBack();
    }
    bar.removeAction(action);
    delete borrowed;
}

std::vector<McHandle<ExTool>> subToolsOf(ExTool *tool)
{
    const auto *const group = dynamic_cast<const ExToolGroup *>(tool);
    return group == nullptr ? std::vector<McHandle<ExTool>>() : group->getTools();
}

void prepare(QWidget &part)
{
    part.setVisible(false);
    part.setBackgroundRole(QPalette::Window);
    part.setAutoFillBackground(true);
}

} // namespace

ExContextToolBar::ExContextToolBar()
    : QObject(actionHost())
    , m_bar(new ExToolBar(tr("Context toolbar")))
    , m_hint(new QLabel)
{
    m_hint->setMargin(hintMargin);
    m_showTimer.setSingleShot(true);
    QObject::connect(&m_showTimer, &QTimer::timeout, this, &ExContextToolBar::delayedShow);
    prepare(*m_bar);
    prepare(*m_hint);
}

ExContextToolBar::~ExContextToolBar()
{
    delete m_hint;
    delete m_bar;
}

void ExContextToolBar::attachTo(QWidget *widget, Qt::Corner corner)
{
    if (widget == m_attached) {
        return;
    }
    if (m_attached != nullptr) {
        m_attached->removeEventFilter(this);
        QObject::disconnect(m_attached, nullptr, this, nullptr);
    }
    m_attached = widget;
    m_corner = corner;
    setParentOfParts(widget);
    if (widget == nullptr) {
        return;
    }
    widget->installEventFilter(this);
    // Comes while the widget still has its children: they are not to go with it.
    QObject::connect(widget, &QObject::destroyed, this, [this] { setParentOfParts(nullptr); });
    if (m_bar != nullptr && !m_bar->actions().isEmpty()) {
        showParts();
    }
}

void ExContextToolBar::detachFrom(QWidget *widget)
{
    if (widget == m_attached) {
        setParentOfParts(nullptr);
    }
}

void ExContextToolBar::setParentOfParts(QWidget *parent)
{
    // Hidden in so many words, they do not appear together with a parent.
    hideParts();
    for (QWidget *part : {static_cast<QWidget *>(m_bar), static_cast<QWidget *>(m_hint)}) {
        if (part != nullptr) {
            part->setParent(parent);
        }
    }
}

void ExContextToolBar::setVisible(bool visible)
{
    if (m_attached == nullptr || !m_attached->isVisible()) {
        return;
    }
    if (visible) {
        m_showTimer.start(0);
    } else {
        m_showTimer.stop();
        hideParts();
    }
}

bool ExContextToolBar::isVisible() const
{
    return m_bar != nullptr && m_bar->isVisible();
}

void ExContextToolBar::delayedShow()
{
    showParts();
}

void ExContextToolBar::showParts()
{
    // Without a widget to float in they would be windows.
    if (m_bar == nullptr || m_bar->parentWidget() == nullptr) {
        return;
    }
    m_bar->show();
    m_bar->raise();
    if (m_hint != nullptr) {
        m_hint->setVisible(!m_hint->text().isEmpty());
        m_hint->raise();
    }
    place();
}

void ExContextToolBar::hideParts()
{
    if (m_bar != nullptr) {
        m_bar->hide();
    }
    if (m_hint != nullptr) {
        m_hint->hide();
    }
}

void ExContextToolBar::place()
{
    if (m_bar == nullptr || m_attached == nullptr) {
        return;
    }
    m_bar->adjustSize();
    if (m_hint != nullptr && !m_hint->text().isEmpty()) {
        // The hint begins at the bar's left edge; a bar that is as wide keeps it in the viewer.
        m_bar->resize(std::max(m_bar->width(), m_hint->width()), m_bar->height());
    }
    m_bar->move(
        m_attached->width() - gap - m_bar->width(), m_attached->height() - gap - m_bar->height());
    if (m_hint != nullptr) {
        m_hint->move(m_bar->x(), m_bar->y() - gap - m_hint->height());
    }
}

void ExContextToolBar::setDisplayHint(const QString &hint)
{
    if (m_hint == nullptr) {
        return;
    }
    m_hint->setText(hint);
    m_hint->resize(m_hint->sizeHint());
    if (hint.isEmpty()) {
        m_hint->hide();
    } else if (m_bar != nullptr && !m_bar->isHidden()) {
        m_hint->show();
    }
    place();
}

void ExContextToolBar::setDisplayHintFontSize(int pointSize)
{
    if (m_hint == nullptr || pointSize <= 0) {
        return;
    }
    QFont font = m_hint->font();
    font.setPointSize(pointSize);
    m_hint->setFont(font);
    m_hint->resize(m_hint->sizeHint());
    place();
}

void ExContextToolBar::addWidget(QWidget *widget)
{
    insertWidget(widget, m_bar == nullptr ? 0 : static_cast<int>(m_bar->actions().size()));
}

void ExContextToolBar::insertWidget(QWidget *widget, int index)
{
    if (widget == nullptr || m_bar == nullptr || widget->parent() == m_bar) {
        return;
    }
    widget->hide();
    QAction *const before = m_bar->actions().value(std::max(index, 0));
    auto *const action = new BorrowedWidgetAction(widget, m_bar);
    m_bar->insertAction(before, action);
    action->setVisible(true);
    // The widget may be destroyed by somebody else, and takes its action with it.
    QObject::connect(action, &QObject::destroyed, this, [this] { hideWhenEmpty(); });
    showParts();
}

void ExContextToolBar::removeWidget(QWidget *widget)
{
    if (widget == nullptr || m_bar == nullptr) {
        return;
    }
    const QList<QAction *> actions = m_bar->actions();
    for (QAction *action : actions) {
        if (m_bar->widgetForAction(action) == widget) {
            removeFrom(*m_bar, action);
            widget->hide();
        }
    }
    hideWhenEmpty();
}

bool ExContextToolBar::isEmpty() const
{
    return m_bar == nullptr || m_bar->actions().isEmpty();
}

void ExContextToolBar::hideWhenEmpty()
{
    if (isEmpty()) {
        hideParts();
    }
}

void ExContextToolBar::appendSubTools(const McHandle<ExTool> &tool)
{
    if (m_bar == nullptr) {
        return;
    }
    for (const McHandle<ExTool> &member : subToolsOf(tool)) {
        if (m_subTools.count(member) == 0) {
            m_bar->hide();
            addSubTool(*member);
        }
    }
}

void ExContextToolBar::addSubTool(ExTool &member)
{
    auto *const group = dynamic_cast<ExToolGroup *>(&member);
    m_subTools[&member] = group != nullptr && !group->getTools().empty()
        ? m_bar->addToolPopup(*group, &member)
        : m_bar->addTool(member, false);
}

void ExContextToolBar::removeSubTools(const McHandle<ExTool> &tool)
{
    removeSubTools(subToolsOf(tool));
}

void ExContextToolBar::removeSubTools(const std::vector<McHandle<ExTool>> &members)
{
    if (m_bar == nullptr) {
        return;
    }
    bool wasHidden = false;
    for (const McHandle<ExTool> &member : members) {
        const auto found = m_subTools.find(member);
        if (found != m_subTools.end()) {
            m_bar->hide();
            removeSubTool(*member, found->second);
            m_subTools.erase(found);
            wasHidden = true;
        }
    }
    if (m_bar->actions().isEmpty()) {
        // Also when it is still to be shown: an empty bar is not to appear.
        m_showTimer.stop();
        hideParts();
    } else if (wasHidden) {
        showParts();
    }
}

void ExContextToolBar::removeSubTool(ExTool &member, ExActionUI *action)
{
    m_bar->removeActionUI(action);
    m_bar->removeTool(&member); // The action may be gone, or stand for another tool by now.
}

void ExContextToolBar::removeAll()
{
    m_showTimer.stop();
    hideParts();
    detachFrom(m_attached);
    const auto subTools = std::exchange(m_subTools, {});
    if (m_bar == nullptr) {
        return;
    }
    for (const auto &[member, action] : subTools) {
        removeSubTool(*member, action);
    }
    const QList<QAction *> left = m_bar->actions();
    for (QAction *action : left) {
        removeFrom(*m_bar, action);
    }
}

bool ExContextToolBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_attached || m_bar == nullptr || m_bar->parentWidget() != m_attached) {
        return false;
    }
    switch (event->type()) {
    case QEvent::Resize:
        place();
        break;
    case QEvent::Show:
        if (isEmpty() && m_hint != nullptr && m_hint->text().isEmpty()) {
            // Its last tool has left while the widget was hidden.
            hideParts();
        } else if (m_bar->isHidden() && !isEmpty()) {
            showParts();
        }
        break;
    case QEvent::Hide:
        if (m_bar->isHidden()) {
            m_bar->hide(); // In so many words: it does not come back with the widget.
        }
        break;
    default:
        break;
    }
    return false;
}
