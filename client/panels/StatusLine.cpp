#include "client/panels/StatusLine.h"

#include "client/panels/ProblemsButton.h"
#include "client/panels/ProgressLine.h"
#include "client/panels/StatusText.h"

#include <QLabel>

StatusLine::StatusLine(QWidget *parent)
    : QStatusBar(parent)
    , m_text(new StatusText)
    , m_problems(new ProblemsButton)
    , m_locked(new QLabel)
    , m_progress(new ProgressLine)
{
    setSizeGripEnabled(false); // The frame does that, where there is one.
    constexpr int margin = 6; // As the line itself leaves beside passing messages.
    m_text->setContentsMargins(margin, 0, 0, 0);
    m_locked->setContentsMargins(margin, 0, margin, 0);
    addWidget(m_text, 1);
    addPermanentWidget(m_problems);
    addPermanentWidget(m_locked);
    m_locked->setObjectName(QStringLiteral("LockedPatients"));
    m_locked->setTextFormat(Qt::PlainText);
    m_locked->hide();
    addPermanentWidget(m_progress);
}

void StatusLine::setLocked(const QStringList &names)
{
    constexpr int most = 320; // Pixels: the rest of the line needs room, too.
    const QString all = names.join(QStringLiteral("; "));
    m_locked->setText(
        tr("Locked: %1").arg(m_locked->fontMetrics().elidedText(all, Qt::ElideRight, most)));
    const QString explanation = tr("Only %1 can be opened, until File > Lock patient is switched "
                                   "off.")
                                    .arg(all);
    // As rich text in any case, which is guessed otherwise.
    m_locked->setToolTip(
        QLatin1String("<qt>") % explanation.toHtmlEscaped() % QLatin1String("</qt>"));
    m_locked->setVisible(!names.isEmpty());
}
