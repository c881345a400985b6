#include "framework/dialogs/QxWorkAreaControl.h"

#include "framework/application/ExApplication.h"

QxWorkAreaControl::QxWorkAreaControl(QObject *parent)
    : QxTaskControl(parent)
{
    connect(this, &QxTaskControl::progressChanged, this,
        &QxWorkAreaControl::workAreaSetProgressValueGlobal);
    connect(this, &QxTaskControl::textChanged, this, &QxWorkAreaControl::workAreaSetProgressText);
}

QxWorkAreaControl::~QxWorkAreaControl() = default;

void QxWorkAreaControl::startWorking(const char *text)
{
    ExApplication::progress().startWorking(text);
}

void QxWorkAreaControl::startWorkingNoStop(const char *text)
{
    ExApplication::progress().startWorkingNoStop(text);
}

void QxWorkAreaControl::stopWorking()
{
    ExApplication::progress().stopWorking();
}

int QxWorkAreaControl::wasInterrupted()
{
    return ExApplication::progress().wasInterrupted();
}

void QxWorkAreaControl::workAreaSetProgressValueGlobal(float value)
{
    ExApplication::progress().setProgressValue(value);
}

void QxWorkAreaControl::workAreaSetProgressText(const QString &text)
{
    ExApplication::progress().setProgressInfo(text.toLocal8Bit().constData());
}
