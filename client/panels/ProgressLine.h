#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

/// Shows, in a status line, what is under way and how far it is, with a way to cancel it. Hidden
/// while nothing is under way.
class ProgressLine final : public QWidget
{
    Q_OBJECT

public:
    explicit ProgressLine(QWidget *parent = nullptr);

    /// @param total 0 when it is not known.
    void setProgress(int done, int total, const QString &what);

Q_SIGNALS:
    void cancelRequested();

private:
    QLabel *m_label;
    QProgressBar *m_bar;
};
