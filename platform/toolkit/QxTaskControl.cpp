#include "platform/toolkit/QxTaskControl.h"

QxTaskControl::QxTaskControl(QObject *parent)
    : QObject(parent)
{ }

QxTaskControl::~QxTaskControl() = default;

void QxTaskControl::reportProgress(float fraction)
{
    Q_EMIT progressChanged(fraction);
}

void QxTaskControl::reportText(const QString &text)
{
    Q_EMIT textChanged(text);
}

void QxTaskControl::setProgressValue(float value)
{
    reportProgress(value);
}

void QxTaskControl::setProgressInfo(const char *text)
{
    reportText(QString::fromLocal8Bit(text));
}
