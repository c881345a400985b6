#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QDialog>

#include <memory>

class ExPasswordInputWidgetBase;

/// Modal dialog that asks for a password and can propose a generated one. The password is shown as
/// dots; one that was generated here is shown in clear text, since the user has to read it to pass
/// it on. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExPasswordInputWidget : public QDialog
{
    Q_OBJECT

public:
    /// @param message what the password is for. @param parent may be null.
    explicit ExPasswordInputWidget(const QString &message, QWidget *parent = nullptr);
    /// Without a message.
    explicit ExPasswordInputWidget(QWidget *parent = nullptr);
    ~ExPasswordInputWidget() override;

    [[nodiscard]] QString password() const;

public Q_SLOTS:
    /// Puts a generated password into the field and selects it.
    void slotGenerateClicked();

private:
    std::unique_ptr<ExPasswordInputWidgetBase> d;
};
