#include "client/links/LinkType.h"

#include "client/viewers/WorkstationViewer.h"
#include "framework/viewers/ExViewerDB.h"

#include <QCoreApplication>

QString LinkType::name() const
{
    return QCoreApplication::translate("LinkType", label);
}

bool LinkType::appliesTo(const WorkstationViewer &viewer) const
{
    return WorkstationViewer::isSliceType(viewer.viewerType()) ? ofSlices : ofVolumes;
}

const std::vector<LinkType> &LinkType::all()
{
    static const std::vector<LinkType> types{
        {ExViewerDB::TRANSLATION_GROUP, QT_TRANSLATE_NOOP("LinkType", "Scrolling"), true, false},
        {ExViewerDB::ZOOM_GROUP, QT_TRANSLATE_NOOP("LinkType", "Zoom"), true, false},
        {ExViewerDB::CAMERA_GROUP, QT_TRANSLATE_NOOP("LinkType", "Pan"), true, false},
        {ExViewerDB::WINDOWLEVEL_GROUP, QT_TRANSLATE_NOOP("LinkType", "Window level"), true, false},
        {ExViewerDB::TIMEPHASE_GROUP, QT_TRANSLATE_NOOP("LinkType", "Time phase"), true, true},
        {ExViewerDB::ROTATION_GROUP, QT_TRANSLATE_NOOP("LinkType", "3D rotation"), false, true},
    };
    return types;
}
