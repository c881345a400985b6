#include "client/tools/NewFileDialog.h"

#include "framework/application/ExApplication.h"

#include <QFileDialog>
#include <QFileInfo>

QString NewFileDialog::ask(
    const QString &title, const QString &proposed, const QString &filter, const QString &suffix)
{
    const QFileInfo file(proposed);
    QFileDialog dialog(ExApplication::instance().dialogParent(), title, file.path(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix); // Before it looks whether there is such a file.
    dialog.selectFile(file.fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}
