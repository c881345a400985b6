#pragma once

#include <QLabel>

/// A line of text that tells what is there, or, in the warning colour, what is wrong with it.
class StatusText final : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    void showText(const QString &text);
    void showWarning(const QString &text);
    [[nodiscard]] bool isWarning() const { return m_isWarning; }

private:
    bool m_isWarning = false;
};
