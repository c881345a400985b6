#include "client/panels/ProgressLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

ProgressLine::ProgressLine(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel)
    , m_bar(new QProgressBar)
{
    auto *const cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName(QStringLiteral("CancelButton"));
    cancel->setToolTip(tr("Ends looking for files and reading; what is there stays"));
    connect(cancel, &QPushButton::clicked, this, &ProgressLine::cancelRequested);
    constexpr int barWidth = 160;
    m_bar->setFixedWidth(barWidth);
    m_bar->setTextVisible(false);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addWidget(cancel);
    hide();
}

void ProgressLine::setProgress(int done, int total, const QString &what)
{
    m_label->setText(what);
    m_bar->setRange(0, total);
    m_bar->setValue(done);
}
