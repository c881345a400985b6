#include "framework/dialogs/ExMessageBox.h"

#include "framework/application/ExApplication.h"
#include "framework/dialogs/ExPasswordInputWidget.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QPointer>
#include <QPushButton>

namespace {

QWidget *parentFor(QWidget *parent)
{
    const bool useMainWidget = parent == nullptr && ExApplication::hasInstance();
    return useMainWidget ? ExApplication::instance().dialogParent() : parent;
}

QString titleFor(const QString &title)
{
    return title.isEmpty() ? QCoreApplication::applicationName() : title;
}

} // namespace

ExMessageBox::ExMessageBox(Icon icon, const QString &text, StandardButtons buttons,
    StandardButton defaultButton, QWidget *parent, const QString &title)
    : QMessageBox(icon, titleFor(title), text, buttons, parentFor(parent))
{
    setModal(true);
    if (defaultButton != NoButton) {
        setDefaultButton(defaultButton);
    }
}

const QString &ExMessageBox::nullString()
{
    static const QString null;
    return null;
}

QMessageBox::StandardButton ExMessageBox::run()
{
    const McHandle<ExTempCursorHandle> arrow = ExApplication::tempNotBusy();
    return static_cast<StandardButton>(exec());
}

QMessageBox::StandardButton ExMessageBox::runAndDelete(ExMessageBox *box)
{
    const QPointer<ExMessageBox> guard(box);
    const StandardButton answer = box->run();
    delete guard;
    return answer;
}

QMessageBox::StandardButton ExMessageBox::error(const QString &text, StandardButtons buttons,
    StandardButton defaultButton, QWidget *parent, const QString &title)
{
    return runAndDelete(new ExMessageBox(Critical, text, buttons, defaultButton, parent, title));
}

QMessageBox::StandardButton ExMessageBox::warning(const QString &text, StandardButtons buttons,
    StandardButton defaultButton, QWidget *parent, const QString &title)
{
    return runAndDelete(new ExMessageBox(Warning, text, buttons, defaultButton, parent, title));
}

QMessageBox::StandardButton ExMessageBox::information(const QString &text, StandardButtons buttons,
    StandardButton defaultButton, QWidget *parent, const QString &title)
{
    return runAndDelete(new ExMessageBox(Information, text, buttons, defaultButton, parent, title));
}

QMessageBox::StandardButton ExMessageBox::question(const QString &text, StandardButtons buttons,
    StandardButton defaultButton, QWidget *parent, const QString &title)
{
    return runAndDelete(new ExMessageBox(Question, text, buttons, defaultButton, parent, title));
}

void ExMessageBox::info(const QString &text, QWidget *parent)
{
    information(text, Ok, NoButton, parent);
}

bool ExMessageBox::confirm(const QString &text, const QString &okText, QWidget *parent)
{
    auto *const box
        = new ExMessageBox(Information, text, Ok | Cancel, Cancel, parent, nullString());
    box->button(Ok)->setText(okText);
    return runAndDelete(box) == Ok;
}

bool ExMessageBox::overwriteConfirmation(const QString &fileName, QWidget *parent)
{
    return confirm(QCoreApplication::translate("HxMessage", "%1 already exists.").arg(fileName),
        QCoreApplication::translate("ExMessageBox", "Overwrite"), parent);
}

bool ExMessageBox::deleteConfirmation(const QString &text, QWidget *parent)
{
    return confirm(text, QCoreApplication::translate("ExMessageBox", "Delete"), parent);
}

bool ExMessageBox::warningConfirmation(
    const QString &text, const QString &acceptText, QWidget *parent)
{
    const QPointer<ExMessageBox> box
        = new ExMessageBox(Warning, text, Cancel, Cancel, parent, nullString());
    const QPushButton *const accept = box->addButton(acceptText, AcceptRole);
    box->run();
    const bool isAccepted = box != nullptr && box->clickedButton() == accept;
    delete box;
    return isAccepted;
}

QString ExMessageBox::password(
    const QString &text, QWidget *parent, const QString &title, bool generate)
{
    const QPointer<ExPasswordInputWidget> dialog
        = new ExPasswordInputWidget(text, parentFor(parent));
    dialog->setWindowTitle(titleFor(title));
    if (generate) {
        dialog->slotGenerateClicked();
    }
    const McHandle<ExTempCursorHandle> arrow = ExApplication::tempNotBusy();
    const bool accepted = dialog->exec() == QDialog::Accepted && dialog != nullptr;
    QString password = accepted ? dialog->password() : QString();
    delete dialog;
    return password;
}
