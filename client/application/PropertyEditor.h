#pragma once

#include "platform/properties/KxVariant.h"

#include <QWidget>

#include <functional>

/// Lets the user change one setting: a check box, a list of choices, a number or a text, by the
/// setting's kind. What is entered is written and told at once; the field follows changes made
/// elsewhere. Owned by its toolkit parent.
class PropertyEditor final : public QWidget
{
    Q_OBJECT

public:
    /// @param property must outlive the editor.
    PropertyEditor(KxVariant &property, QWidget *parent);

Q_SIGNALS:
    /// The text entered is no value of the setting, which keeps its own.
    void refused(const QString &text);

private:
    QWidget *makeField();
    QWidget *makeCheckBox();
    QWidget *makeChoices();
    QWidget *makeInteger();
    QWidget *makeReal();
    QWidget *makeText();
    void enter(const QString &text);

    KxVariant &m_property;
    /// Brings the field up to date.
    std::function<void()> m_show;
};
