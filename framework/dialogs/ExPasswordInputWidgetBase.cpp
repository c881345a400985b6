#include "framework/dialogs/ExPasswordInputWidgetBase.h"

#include <QCoreApplication>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("ExPasswordInputWidgetBase", source);
}

template <typename Widget>
Widget *add(QGridLayout *layout, const char *name, int row, int column, int columns = 1)
{
    auto *const widget = new Widget(layout->parentWidget());
    widget->setObjectName(QLatin1String(name));
    layout->addWidget(widget, row, column, 1, columns);
    return widget;
}

} // namespace

void ExPasswordInputWidgetBase::setupUi(QDialog *dialog)
{
    auto *const layout = new QGridLayout(dialog);
    layout->setObjectName(QStringLiteral("gridLayout"));
    mMessage = add<QLabel>(layout, "mMessage", 0, 0, 4);
    label = add<QLabel>(layout, "label", 1, 0);
    mPassword = add<QLineEdit>(layout, "mPassword", 1, 1, 3);
    mGenerate = add<QPushButton>(layout, "mGenerate", 2, 1);
    mOK = add<QPushButton>(layout, "mOK", 2, 2);
    mCancel = add<QPushButton>(layout, "mCancel", 2, 3);

    dialog->setWindowTitle(text("Password"));
    mMessage->setWordWrap(true);
    label->setText(text("Password"));
    label->setBuddy(mPassword);
    mPassword->setEchoMode(QLineEdit::Password);
    mGenerate->setText(text("Generate"));
    mGenerate->setAutoDefault(false);
    mOK->setText(text("OK"));
    mOK->setDefault(true);
    mCancel->setText(text("Cancel"));
}
