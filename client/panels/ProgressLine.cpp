#include "client/panels/ProgressLine.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {

constexpr int percent = 100;

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Wheel:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

ProgressLine::ProgressLine(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel)
    , m_bar(new QProgressBar)
    , m_cancel(new QPushButton(tr("Cancel")))
{
    m_cancel->setObjectName(QStringLiteral("CancelButton"));
    m_cancel->setToolTip(tr("Ends looking for files and reading; what is there stays"));
    connect(m_cancel, &QPushButton::clicked, this, [this] {
        m_wasInterrupted = true;
        Q_EMIT cancelRequested();
    });
    constexpr int barWidth = 160;
    m_bar->setFixedWidth(barWidth);
    m_bar->setFormat(QStringLiteral("%p %"));
    m_bar->setAlignment(Qt::AlignCenter);
    m_bar->setAccessibleName(tr("Progress"));
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addWidget(m_cancel);
    hide();
}

void ProgressLine::setProgress(int done, int total, const QString &what)
{
    m_label->setText(what);
    m_bar->setRange(0, total);
    m_bar->setValue(done);
}

void ProgressLine::start(const char *text, bool canBeStopped)
{
    m_wasInterrupted = false;
    m_cancel->setVisible(canBeStopped);
    setProgress(0, percent, QString::fromLocal8Bit(text));
    show();
    showNow();
}

void ProgressLine::showNow()
{
    repaint(); // Whoever works in this thread does not let the event loop do it.
}

void ProgressLine::startWorking(const char *text)
{
    start(text, true);
}

void ProgressLine::startWorkingNoStop(const char *text)
{
    start(text, false);
}

void ProgressLine::stopWorking()
{
    hide();
    m_cancel->show();
}

int ProgressLine::wasInterrupted()
{
    if (m_cancel->isVisible()) {
        qApp->installEventFilter(this);
        QCoreApplication::processEvents();
        qApp->removeEventFilter(this);
    }
    return m_wasInterrupted ? 1 : 0;
}

bool ProgressLine::eventFilter(QObject *watched, QEvent *event)
{
    // Windows of the platform pass input on to their widgets.
    const bool isKept = event->type() == QEvent::Shortcut
        || (isInput(event->type()) && watched->isWidgetType() && watched != m_cancel);
    return isKept || QWidget::eventFilter(watched, event);
}

void ProgressLine::setProgressValue(float value)
{
    m_bar->setRange(0, percent);
    m_bar->setValue(static_cast<int>(value * percent));
    showNow();
}

void ProgressLine::setProgressInfo(const char *text)
{
    m_label->setText(QString::fromLocal8Bit(text));
    showNow();
}
