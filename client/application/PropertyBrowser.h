#pragma once

#include <QDialog>
#include <QList>
#include <QRegularExpression>

#include <list>

class KxVariant;
class PropertiesPanel;

/// Window with a list of settings; see PropertiesPanel. GUI thread only.
class PropertyBrowser final : public QDialog
{
    Q_OBJECT

public:
    /// @param shown only settings whose key matches one of these; an empty list shows all.
    /// @param hidden none of those whose key matches one of these.
    PropertyBrowser(const std::list<KxVariant *> &properties,
        const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden,
        QWidget *parent);
    /// Takes over what is being entered.
    ~PropertyBrowser() override;

    /// How many settings were changed here, each counted once.
    [[nodiscard]] int numChanged() const;

private:
    PropertiesPanel *m_panel;
};
