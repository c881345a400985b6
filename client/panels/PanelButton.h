#pragma once

#include <QToolButton>

/// A tool button with an icon for the row of buttons of a panel.
class PanelButton final : public QToolButton
{
    Q_OBJECT

public:
    /// @param name the object name. @param icon of a drawing. @param text what it does: its tool
    /// tip.
    PanelButton(const QString &name, const QString &icon, const QString &text);
};
