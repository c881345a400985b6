#include "platform/dicomio/DicomMailbox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <utility>

void DicomMailbox::post(Action action)
{
    const std::lock_guard lock(m_mutex);
    m_actions.push_back(std::move(action));
    if (m_actions.size() == 1) {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

bool DicomMailbox::event(QEvent *event)
{
    if (event->type() != QEvent::User) {
        return QObject::event(event);
    }
    std::vector<Action> actions;
    {
        const std::lock_guard lock(m_mutex);
        actions.swap(m_actions);
    }
    // An action may end the mailbox's life, and with it what the later ones are about.
    const QPointer<DicomMailbox> self(this);
    for (const Action &action : actions) {
        if (self) {
            action();
        }
    }
    return true;
}
