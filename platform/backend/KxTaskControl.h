#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/util/McHandableThreaded.h"
#include "platform/util/McProgressInterface.h"

class QString;

/// What long work drives: start, progress, text, stop, question for interruption
/// (McProgressInterface), in an object that may be held by handles in several threads.
class MOVARA_PLATFORM_EXPORT KxTaskControl : public virtual McHandableThreaded,
                                             public virtual McProgressInterface
{
public:
    ~KxTaskControl() override;
    /// Reports the fraction done, 0 to 1.
    virtual void reportProgress(float fraction) = 0;
    /// Reports what is being done now.
    virtual void reportText(const QString &text) = 0;
};
