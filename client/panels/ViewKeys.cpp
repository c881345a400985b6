#include "client/panels/ViewKeys.h"

#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

ViewKeys::ViewKeys(QWidget &widget)
    : QObject(&widget)
{
    widget.installEventFilter(this);
}

void ViewKeys::add(const QKeySequence &keys, std::function<void()> react)
{
    m_bindings.push_back({keys, std::move(react)});
}

bool ViewKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) {
        return QObject::eventFilter(watched, event);
    }
    const QKeySequence pressed(static_cast<QKeyEvent *>(event)->keyCombination());
    const auto found = std::find_if(m_bindings.begin(), m_bindings.end(),
        [&pressed](const Binding &each) { return each.keys == pressed; });
    if (found == m_bindings.end()) {
        return QObject::eventFilter(watched, event);
    }
    if (event->type() == QEvent::KeyPress) {
        found->react();
    }
    event->accept(); // An override that is accepted comes as a key, not as a shortcut.
    return true;
}
