#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/util/McHandable.h"

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
    /// There was an override cursor to stand in for.
    bool m_isOverriding;
};
