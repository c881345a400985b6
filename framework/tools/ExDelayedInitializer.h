#pragma once

#include <QList>

/// Start-up callbacks of a class T: modules add theirs from static initializers,
///     const bool isRegistered = ExTool::addInitCallback(&createMyTools);
/// and the host runs them once its application object exists. T supplies initCallbackList(). GUI
/// thread only.
template <typename T>
class ExDelayedInitializer
{
public:
    ExDelayedInitializer(const ExDelayedInitializer &) = delete;
    ExDelayedInitializer &operator=(const ExDelayedInitializer &) = delete;

    /// Always true, so that it can initialize a constant.
    static bool addInitCallback(void (*callback)())
    {
        T::initCallbackList().append(callback);
        return true;
    }

    /// Calls every callback in the order in which they were added. The list stays: another call
    /// runs them all again.
    static void doInitCallbacks()
    {
        QList<void (*)()> &callbacks = T::initCallbackList();
        // By index: a callback may add others.
        for (qsizetype i = 0; i < callbacks.size(); ++i) {
            callbacks.at(i)();
        }
    }

protected:
    ExDelayedInitializer() = default;
    ~ExDelayedInitializer() = default;
};
