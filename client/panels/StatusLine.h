#pragma once

#include <QStatusBar>

class ProblemsButton;
class ProgressLine;
class QLabel;
class StatusText;

/// The line below the viewers: what is open or what went wrong with it, what could not be used, who
/// is locked, and what is under way.
class StatusLine final : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget *parent = nullptr);

    [[nodiscard]] StatusText &text() { return *m_text; }
    [[nodiscard]] ProblemsButton &problems() { return *m_problems; }
    [[nodiscard]] ProgressLine &progress() { return *m_progress; }
    /// Says as long as it lasts that only these patients can be opened.
    /// @param names of the locked patients, for people; empty when nobody is locked.
    void setLocked(const QStringList &names);

private:
    StatusText *m_text;
    ProblemsButton *m_problems;
    QLabel *m_locked;
    ProgressLine *m_progress;
};
