#include "client/session/UnsavedQuestion.h"

#include "client/session/WorkstationSessions.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/tools/ExTool.h"
#include "platform/util/McHandle.h"

bool UnsavedQuestion::mayGo(const QString &askToSave, const QString &askToLose)
{
    const QStringList unsaved = WorkstationSessions::unsaved();
    if (unsaved.isEmpty()) {
        return true;
    }
    const McHandle<ExTool> save = ExTool::getToolByDecorationKey("File.SaveSession", true);
    const QString &question = save ? askToSave : askToLose;
    const auto answer = ExMessageBox::question(question.arg(unsaved.join(QStringLiteral(", "))),
        (save ? QMessageBox::Save : QMessageBox::NoButton) | QMessageBox::Discard
            | QMessageBox::Cancel,
        QMessageBox::Cancel);
    if (answer == QMessageBox::Save) {
        save->setActive(true);
        return WorkstationSessions::unsaved().isEmpty();
    }
    return answer == QMessageBox::Discard;
}
