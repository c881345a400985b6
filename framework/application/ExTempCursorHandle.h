#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/util/McHandable.h"

class QCursor;

/// Gives the arrow cursor back while the application is busy, for as long as the handle lives, e.g.
/// while a dialog is open. Made by ExApplication::tempNotBusy() and held by McHandle. GUI thread
/// only.
class MOVARA_FRAMEWORK_EXPORT ExTempCursorHandle : public McHandable
{
public:
    ExTempCursorHandle();

protected:
    ~ExTempCursorHandle() override;

private:
    /// The override cursor that was active; null when there was none. Only asked for being null.
    QCursor *m_cursor;
};
