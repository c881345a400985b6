#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

/// Has work done in the thread it lives in, handed in by any thread. What has not been done when it
/// is destroyed is dropped.
class DicomMailbox final : public QObject
{
public:
    using Action = std::function<void()>;

    /// Any thread. Actions are done in the order in which they were posted, from the event loop.
    void post(Action action);

protected:
    bool event(QEvent *event) override;

private:
    std::mutex m_mutex;
    std::deque<Action> m_actions;
};
