#pragma once

#include "framework/application/ExUIRegistry.h"

/// Gives the buttons and pop-ups of the framework an object name, and a name for assistive
/// technology, where they have none.
class UiRegistry final : public ExUIRegistry
{
public:
    void registerWidget(QWidget *widget, const QString &name) override;
    void registerAction(QAction *action, const QString &name) override;
};
