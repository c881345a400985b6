#include "framework/viewers/ExScopedDetach.h"

#include "framework/viewers/ExViewerDBGroup.h"

ExScopedDetach::ExScopedDetach(ExViewerDBGroup *group, const ExBaseViewer *viewer)
    : m_group(group)
    , m_viewer(viewer)
    , m_wasAttached(
          group == nullptr || group->viewerAttributeAsBool(viewer, ExViewerDB::ATT_ATTACHED))
{
    if (m_group != nullptr) {
        m_group->setViewerAttribute(m_viewer, ExViewerDB::ATT_ATTACHED, "false");
    }
}

ExScopedDetach::~ExScopedDetach()
{
    if (m_group != nullptr) {
        m_group->setViewerAttribute(
            m_viewer, ExViewerDB::ATT_ATTACHED, m_wasAttached ? "true" : "false");
    }
}
