#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

/// Acts as the user on the next modal dialog that opens. Armed from construction; the action must
/// bring the dialog to its end.
class NextDialog
{
public:
    explicit NextDialog(std::function<void(QWidget &dialog)> act)
        : m_act(std::move(act))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(0);
    }

    /// Whether a dialog was there, and has been acted on.
    [[nodiscard]] bool hasAppeared() const { return m_hasAppeared; }

private:
    void look()
    {
        QWidget *const dialog = QApplication::activeModalWidget();
        if (dialog != nullptr && dialog->isVisible()) {
            m_timer.stop();
            m_hasAppeared = true;
            m_act(*dialog);
        }
    }

    std::function<void(QWidget &)> m_act;
    QTimer m_timer;
    bool m_hasAppeared = false;
};
