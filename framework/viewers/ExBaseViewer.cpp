#include "framework/viewers/ExBaseViewer.h"

#include <string_view>

ExBaseViewer::ExBaseViewer() = default;

ExBaseViewer::~ExBaseViewer() = default;

Ex::View ExBaseViewer::getViewOrientation(const char *letters)
{
    const std::string_view axes = std::string_view(letters == nullptr ? "" : letters).substr(0, 2);
    const auto hasAnyOf
        = [axes](const char *wanted) { return axes.find_first_of(wanted) != axes.npos; };
    if (!hasAnyOf("FH")) {
        return Ex::VIEW_AXIAL;
    }
    if (!hasAnyOf("AP")) {
        return Ex::VIEW_CORONAL;
    }
    return hasAnyOf("RL") ? Ex::VIEW_AXIAL : Ex::VIEW_SAGITTAL;
}

KxVolume *ExBaseViewer::sourceVolume(int index) const
{
    return volume(index);
}

KxSlice *ExBaseViewer::slice(bool /*preview*/) const
{
    return nullptr;
}

bool ExBaseViewer::acceptsImageSet(const KxImageSeries & /*imageSet*/) const
{
    return true;
}

void ExBaseViewer::appendModalTool(ExModal *tool)
{
    if (tool != nullptr) {
        removeModalTool(tool);
        m_modalTools.append(tool);
    }
}

void ExBaseViewer::removeModalTool(ExModal *tool)
{
    const int position = m_modalTools.indexOf(tool);
    if (position >= 0) {
        m_modalTools.remove(position);
    }
}

void ExBaseViewer::activated() { }

bool ExBaseViewer::isReusable() const
{
    return false;
}

bool ExBaseViewer::isPreferredForReuse() const
{
    return false;
}

void ExBaseViewer::putAside(bool /*final*/) { }

void ExBaseViewer::takenBack() { }

void ExBaseViewer::clearCachedImages() { }

void ExBaseViewer::reattach() { }

bool ExBaseViewer::keepsPlacement() const
{
    return false;
}
