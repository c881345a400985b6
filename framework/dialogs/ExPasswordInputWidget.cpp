#include "framework/dialogs/ExPasswordInputWidget.h"

#include "framework/dialogs/ExPasswordInputWidgetBase.h"
#include "framework/dialogs/PasswordGenerator.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

ExPasswordInputWidget::ExPasswordInputWidget(const QString &message, QWidget *parent)
    : QDialog(parent)
    , d(std::make_unique<ExPasswordInputWidgetBase>())
{
    d->setupUi(this);
    d->mMessage->setText(message);
    setModal(true);
    connect(d->mOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(d->mCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(d->mGenerate, &QPushButton::clicked, this, &ExPasswordInputWidget::slotGenerateClicked);
    // What the user types after a proposal is a secret again.
    connect(d->mPassword, &QLineEdit::textEdited, this,
        [this] { d->mPassword->setEchoMode(QLineEdit::Password); });
}

ExPasswordInputWidget::ExPasswordInputWidget(QWidget *parent)
    : ExPasswordInputWidget(QString(), parent)
{ }

ExPasswordInputWidget::~ExPasswordInputWidget() = default;

QString ExPasswordInputWidget::password() const
{
    return d->mPassword->text();
}

void ExPasswordInputWidget::slotGenerateClicked()
{
    d->mPassword->setEchoMode(QLineEdit::Normal);
    d->mPassword->setText(generatedPassword());
    d->mPassword->selectAll();
}
