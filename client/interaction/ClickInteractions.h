#pragma once

#include "client/interaction/ViewerInteraction.h"

#include <functional>

class ViewerLayouts;

/// A press of any button makes the viewer the active one; what the press does otherwise follows.
class ActivateInteraction final : public ViewerInteraction
{
public:
    void install(ExEventHandler &handler) override;

private:
    bool press(const ExEvent &event);
};

/// A double click shows the viewer on the full screen, and another one goes back; so does Escape.
class FullscreenInteraction final : public ViewerInteraction
{
public:
    explicit FullscreenInteraction(ViewerLayouts &layouts);

    void install(ExEventHandler &handler) override;

private:
    bool toggle(const ExEvent &event);
    bool leave(const ExEvent &event);

    ViewerLayouts &m_layouts;
};

/// A click on the badge in the viewer's corner attaches it to its linked viewers or detaches it.
class LinkBadgeInteraction final : public ViewerInteraction
{
public:
    void install(ExEventHandler &handler) override;

private:
    /// Tools do not get the release of a click on the badge: they must not start at its press.
    bool press(const ExEvent &event);
    bool click(const ExEvent &event);
    /// A second, quick click on the badge is another click, not a double click on the viewer.
    bool doubleClick(const ExEvent &event);
};

/// A click of the right button opens the viewer's menu.
class MenuInteraction final : public ViewerInteraction
{
public:
    using OpenMenu = std::function<void(WorkstationViewer &, const QPoint &globalPosition)>;

    explicit MenuInteraction(OpenMenu openMenu);

    void install(ExEventHandler &handler) override;

private:
    bool click(const ExEvent &event);

    OpenMenu m_openMenu;
};
