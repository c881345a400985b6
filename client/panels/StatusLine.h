#pragma once

#include <QStatusBar>

class ProblemsButton;
class ProgressLine;
class StatusText;

/// The line below the viewers: what is open or what went wrong with it, what could not be used, and
/// what is under way.
class StatusLine final : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget *parent = nullptr);

    [[nodiscard]] StatusText &text() { return *m_text; }
    [[nodiscard]] ProblemsButton &problems() { return *m_problems; }
    [[nodiscard]] ProgressLine &progress() { return *m_progress; }

private:
    StatusText *m_text;
    ProblemsButton *m_problems;
    ProgressLine *m_progress;
};
