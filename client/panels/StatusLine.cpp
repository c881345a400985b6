#include "client/panels/StatusLine.h"

#include "client/panels/ProblemsButton.h"
#include "client/panels/ProgressLine.h"
#include "client/panels/StatusText.h"

StatusLine::StatusLine(QWidget *parent)
    : QStatusBar(parent)
    , m_text(new StatusText)
    , m_problems(new ProblemsButton)
    , m_progress(new ProgressLine)
{
    setSizeGripEnabled(false); // The frame does that, where there is one.
    addWidget(m_text, 1);
    addPermanentWidget(m_problems);
    addPermanentWidget(m_progress);
}
