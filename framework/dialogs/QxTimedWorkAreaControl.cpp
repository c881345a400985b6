#include "framework/dialogs/QxTimedWorkAreaControl.h"

#include "framework/application/ExApplication.h"

QxTimedWorkAreaControl::QxTimedWorkAreaControl(float delay, QObject *parent)
    : QxTaskControl(parent)
    , m_delay(delay)
{
    connect(this, &QxTaskControl::progressChanged, this,
        &QxTimedWorkAreaControl::workAreaSetProgressValueGlobal);
    connect(
        this, &QxTaskControl::textChanged, this, &QxTimedWorkAreaControl::workAreaSetProgressText);
}

QxTimedWorkAreaControl::~QxTimedWorkAreaControl() = default;

void QxTimedWorkAreaControl::startWorkingNoStop(const char *text)
{
    m_text = QString::fromLocal8Bit(text);
    ExApplication::busy();
    if (m_delay == 0) {
        show();
    }
}

void QxTimedWorkAreaControl::stopWorking()
{
    if (m_shown) {
        ExApplication::progress().stopWorking();
    }
    ExApplication::notBusy();
}

int QxTimedWorkAreaControl::wasInterrupted()
{
    return ExApplication::progress().wasInterrupted();
}

void QxTimedWorkAreaControl::workAreaSetProgressText(const QString &text)
{
    m_text = text;
    ExApplication::progress().setProgressInfo(text.toLocal8Bit().constData());
}

void QxTimedWorkAreaControl::workAreaSetProgressValueGlobal(float value)
{
    constexpr float quietTime = 1;
    ExApplication::progress().setProgressValue(value);
    const float elapsed = m_watch.getTime();
    if (m_shown || elapsed < quietTime) {
        return;
    }
    const float projected = value == 0 ? m_delay : elapsed / value;
    if (projected >= m_delay) {
        show();
    }
}

void QxTimedWorkAreaControl::show()
{
    m_shown = true;
    ExApplication::progress().startWorkingNoStop(m_text.toLocal8Bit().constData());
}
