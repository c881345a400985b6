#include "client/panels/ProblemsButton.h"

#include "client/panels/StatusText.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

ProblemsButton::ProblemsButton(QWidget *parent)
    : QPushButton(parent)
{
    setObjectName(QStringLiteral("ProblemsButton"));
    setToolTip(tr("Shows what is missing or could not be used, and why"));
    connect(this, &QPushButton::clicked, this, &ProblemsButton::showDetails);
    hide();
}

QString ProblemsButton::incompleteText()
{
    return tr("Opening was cancelled: the list is incomplete.");
}

void ProblemsButton::setProblems(const McDArray<DicomScanner::Problem> &problems, bool isIncomplete)
{
    m_problems = problems;
    m_isIncomplete = isIncomplete;
    const QString unusable = tr("Files that could not be used: %1…").arg(problems.size());
    setText(isIncomplete ? tr("The list is incomplete…") : unusable);
    setVisible(isIncomplete || !problems.isEmpty());
}

QTreeWidget *ProblemsButton::createList() const
{
    auto *const list = new QTreeWidget;
    list->setHeaderLabels({tr("File"), tr("Reason")});
    list->setRootIsDecorated(false);
    for (const DicomScanner::Problem &problem : m_problems) {
        auto *const item = new QTreeWidgetItem(list,
            {QString::fromStdString(problem.file.filename().string()),
                QString::fromStdString(problem.reason)});
        item->setToolTip(0, QString::fromStdString(problem.file.string()));
    }
    list->resizeColumnToContents(0);
    return list;
}

void ProblemsButton::showDetails()
{
    auto *const dialog = new QDialog(window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("ProblemsDialog"));
    dialog->setWindowTitle(
        m_isIncomplete ? tr("Problems while opening") : tr("Files that could not be used"));
    auto *const layout = new QVBoxLayout(dialog);
    if (m_isIncomplete) {
        auto *const incomplete = new StatusText;
        layout->addWidget(incomplete);
        incomplete->showWarning(incompleteText());
    }
    layout->addWidget(createList());
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    layout->addWidget(buttons);
    dialog->resize(720, 360);
    dialog->show();
}
