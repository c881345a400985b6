#pragma once

#include "platform/MovaraPlatformExport.h"

/// What long work tells a progress display, and the one question it asks. The base swallows
/// everything and is never interrupted, so that work can report without asking whether a display
/// exists.
class MOVARA_PLATFORM_EXPORT McProgressInterface
{
public:
    McProgressInterface() = default;
    McProgressInterface(const McProgressInterface &) = delete;
    McProgressInterface &operator=(const McProgressInterface &) = delete;
    virtual ~McProgressInterface();

    /// Shows the display with @p text and a way to interrupt. Null text counts as empty.
    virtual void startWorking(const char *text);
    /// The same without a way to interrupt.
    virtual void startWorkingNoStop(const char *text);
    /// Hides the display.
    virtual void stopWorking();
    /// Non-zero once the user has asked to interrupt the work.
    virtual int wasInterrupted();
    /// @param value the fraction done, 0 to 1.
    virtual void setProgressValue(float value);
    /// @param text what is being done now, in the local 8-bit encoding.
    virtual void setProgressInfo(const char *text);
};
