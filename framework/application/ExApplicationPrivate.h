#pragma once

#include "framework/application/ExApplication.h"
// The application object hands out the study-load helper and so holds it.
#include "framework/loading/ExLoadHelper.h"
#include "platform/properties/KxPropertyPool.h"

#include <QObject>

/// The application object's data, and the receiver of what the toolkit signals to it.
class ExApplication::Private : public QObject
{
    Q_OBJECT

public:
    McProgressInterface *progress = nullptr;
    std::list<ExWorker *> runningProcesses;
    ExLoadHelper loadHelper;
    Zel::KxWebServiceServer *webServiceServer = nullptr;
    /// What told of changed settings before.
    KxPropertyPool::PropagationHook previousHook;

private Q_SLOTS:
    /// Shows the help for the topic of the action that sent the signal.
    void slotShowHelp();
    void slotColorSchemeChanged();

private:
    friend class ExApplication;
};
