#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QWidget>

class QLabel;
class QPushButton;

/// The right end of a monitor widget's menu bar: a warning, and the buttons that a window without a
/// frame lacks. Owned by the menu bar.
class MOVARA_FRAMEWORK_EXPORT ExMenuBarAddOn : public QWidget
{
    Q_OBJECT

public:
    /// Makes the minimise button known as "Minimize", and itself, to the application object.
    explicit ExMenuBarAddOn(QWidget *parent = nullptr);

    /// Shows a warning in orange; an empty text takes it away. Markup in it is shown as it stands.
    void setWarning(const QString &text);
    [[nodiscard]] const QString &warning() const { return m_warning; }

    // The widgets of the form; owned by it.
    QLabel *mWarning;
    QPushButton *mMinimize;
    QPushButton *mNormal;
    QPushButton *mClose;

private:
    QPushButton *addButton(const char *name, const QString &text, const QString &toolTip);

    QString m_warning;
};
