#pragma once

#include "framework/MovaraFrameworkExport.h"

class ExBaseViewer;
class ExViewerDBGroup;

/// Detaches a viewer from its group's linking for the guard's lifetime; what it was before is put
/// back. The group must live longer than the guard. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExScopedDetach
{
public:
    /// @param group null does nothing, now and later.
    ExScopedDetach(ExViewerDBGroup *group, const ExBaseViewer *viewer);
    ~ExScopedDetach();
    ExScopedDetach(const ExScopedDetach &) = delete;
    ExScopedDetach &operator=(const ExScopedDetach &) = delete;

private:
    ExViewerDBGroup *m_group;
    const ExBaseViewer *m_viewer;
    bool m_wasAttached;
};
