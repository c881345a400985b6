#pragma once

#include "framework/application/ExUIRegistry.h"

#include <QHash>
#include <QPointer>

/// The buttons and pop-ups of the framework by name: gives them an object name and a name for
/// assistive technology where they have none. Observes, never owns.
class UiRegistry final : public ExUIRegistry
{
public:
    void registerWidget(QWidget *widget, const QString &name) override;
    void registerAction(QAction *action, const QString &name) override;

    /// Null for an unknown name, and once the widget has gone.
    [[nodiscard]] QWidget *widget(const QString &name) const;
    [[nodiscard]] QAction *action(const QString &name) const;

private:
    QHash<QString, QPointer<QWidget>> m_widgets;
    QHash<QString, QPointer<QAction>> m_actions;
};
