#include "platform/toolkit/QxOptionsButton.h"

#include <QActionGroup>
#include <QMenu>

#include <algorithm>

QxOptionsButton::QxOptionsButton(QWidget *parent)
    : QToolButton(parent)
    , m_options(new QActionGroup(this))
{
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setMenu(new QMenu(this));
    QObject::connect(m_options, &QActionGroup::triggered, this, [this](QAction *action) {
        setCurrentOption(static_cast<int>(m_options->actions().indexOf(action)));
    });
}

QxOptionsButton::~QxOptionsButton() = default;

int QxOptionsButton::addOption(const QString &text, const QVariant &value)
{
    QAction *const action = m_options->addAction(text);
    action->setData(value);
    action->setCheckable(true);
    menu()->addAction(action);
    if (m_current < 0) {
        m_current = 0;
        action->setChecked(true);
        setText(text);
    }
    return count() - 1;
}

void QxOptionsButton::clearOptions()
{
    m_current = -1;
    qDeleteAll(m_options->actions());
    setText(QString());
}

int QxOptionsButton::count() const
{
    return static_cast<int>(m_options->actions().size());
}

QVariant QxOptionsButton::currentData() const
{
    return m_current < 0 ? QVariant() : m_options->actions().at(m_current)->data();
}

void QxOptionsButton::setCurrentOption(int position)
{
    if (position < 0 || position >= count() || position == m_current) {
        return;
    }
    m_current = position;
    QAction *const action = m_options->actions().at(position);
    action->setChecked(true);
    setText(action->text());
    Q_EMIT currentOptionChanged(position);
}

int QxOptionsButton::findData(const QVariant &value) const
{
    const QList<QAction *> actions = m_options->actions();
    const auto found = std::find_if(actions.begin(), actions.end(),
        [&](const QAction *action) { return action->data() == value; });
    return found == actions.end() ? -1 : static_cast<int>(found - actions.begin());
}
