#include "framework/viewers/ExBaseViewer.h"

#include "framework/notification/ExNotifiables.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

/// All viewers there are. Never destroyed: viewers may live as long as the process.
std::vector<ExBaseViewer *> &liveViewers()
{
    static auto *const viewers = new std::vector<ExBaseViewer *>;
    return *viewers;
}

} // namespace

ExBaseViewer::ExBaseViewer()
{
    liveViewers().push_back(this);
}

ExBaseViewer::~ExBaseViewer()
{
    std::erase(liveViewers(), this);
    // Whatever was told of it is not to be delivered any more: nobody could use the address.
    ExNotifiables::forget(this);
}

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

void ExBaseViewer::removeModalToolEverywhere(ExModal *tool)
{
    // By index: a viewer that lets a tool go may let another viewer go.
    for (std::size_t i = liveViewers().size(); i-- > 0;) {
        if (i < liveViewers().size() && liveViewers()[i]->m_modalTools.contains(tool)) {
            liveViewers()[i]->removeModalTool(tool);
        }
    }
}

bool ExBaseViewer::hasModalToolAnywhere(ExModal *tool)
{
    return std::any_of(liveViewers().begin(), liveViewers().end(),
        [tool](const ExBaseViewer *viewer) { return viewer->modalTools().contains(tool); });
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
