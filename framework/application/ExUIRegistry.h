#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QString>

class QAction;
class QWidget;

/// What the client gives the framework's own buttons and pop-ups to be known by a name, e.g. to
/// address them in tests or to explain them to the user. Observes, never owns. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExUIRegistry
{
public:
    ExUIRegistry() = default;
    ExUIRegistry(const ExUIRegistry &) = delete;
    ExUIRegistry &operator=(const ExUIRegistry &) = delete;
    virtual ~ExUIRegistry();

    virtual void registerWidget(QWidget *widget, const QString &name) = 0;
    virtual void registerAction(QAction *action, const QString &name) = 0;
};
