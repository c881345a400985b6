#include "platform/dicomio/DicomMailbox.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

void DicomMailbox::post(Action action)
{
    const std::lock_guard lock(m_mutex);
    m_actions.push_back(std::move(action));
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool DicomMailbox::event(QEvent *event)
{
    if (event->type() != QEvent::User) {
        return QObject::event(event);
    }
    // An event for each: an action may run an event loop, in which the next ones are done.
    Action action;
    {
        const std::lock_guard lock(m_mutex);
        action = std::move(m_actions.front());
        m_actions.pop_front();
    }
    action(); // May end the mailbox's life.
    return true;
}
