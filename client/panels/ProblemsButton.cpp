#include "client/panels/ProblemsButton.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

ProblemsButton::ProblemsButton(QWidget *parent)
    : QPushButton(parent)
{
    setObjectName(QStringLiteral("ProblemsButton"));
    setToolTip(tr("Shows which files could not be used, and why"));
    connect(this, &QPushButton::clicked, this, &ProblemsButton::showDetails);
    hide();
}

void ProblemsButton::setProblems(const McDArray<DicomScanner::Problem> &problems)
{
    m_problems = problems;
    setText(tr("Files that could not be used: %1…").arg(problems.size()));
    setVisible(!problems.isEmpty());
}

void ProblemsButton::showDetails()
{
    auto *const dialog = new QDialog(window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("ProblemsDialog"));
    dialog->setWindowTitle(tr("Files that could not be used"));
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
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto *const layout = new QVBoxLayout(dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    dialog->resize(720, 360);
    dialog->show();
}
