#pragma once

class QDialog;
class QLabel;
class QLineEdit;
class QPushButton;

/// Layout of the password dialog. The widgets belong to the dialog.
class ExPasswordInputWidgetBase
{
public:
    /// Fills an empty dialog.
    void setupUi(QDialog *dialog);

    QLabel *mMessage = nullptr;
    QLabel *label = nullptr;
    QLineEdit *mPassword = nullptr;
    QPushButton *mGenerate = nullptr;
    QPushButton *mOK = nullptr;
    QPushButton *mCancel = nullptr;
};
