#pragma once

#include "framework/viewers/ExScreen.h"
#include "framework/viewers/ExViewerManager.h"

/// Screens of 1000 x 500 pixels side by side; a child's rectangle is its box over all of them.
class FakeScreen : public ExScreen
{
public:
    explicit FakeScreen(int numScreens = 1)
        : screens(numScreens)
    { }
    [[nodiscard]] int numScreens() const override { return screens; }
    [[nodiscard]] int numScreenRects() const override { return screens; }
    [[nodiscard]] QRect screenRect(int screen) const override
    {
        return {screen * 1000, 0, 1000, 500};
    }
    [[nodiscard]] bool isContiguous() const override { return true; }
    [[nodiscard]] QString screenName(int screen) const override { return QString::number(screen); }
    [[nodiscard]] QWidget *screenWidget(int /*screen*/) const override { return nullptr; }
    void raiseScreen(int /*screen*/) override { }
    [[nodiscard]] QRect childRect(const QWidget * /*widget*/, const McBox2f &box) const override
    {
        const float width = static_cast<float>(screens) * 1000;
        return QRectF(box.xMin() * width, box.yMin() * 500, box.width() * width, box.height() * 500)
            .toRect();
    }
    using ExScreen::childWidgets;
    using ExScreen::setChildGeometry;

    int screens;
};

/// Viewer manager with one screen set for all viewers.
class FakeViewerManager : public ExViewerManager
{
public:
    ExScreen *screenForViewer(ExBaseViewer * /*viewer*/) override { return &screen; }
    /// Adds a viewer without placing it.
    void add(ExBaseViewer *viewer) { addViewer(viewer, McBox2f(), false); }
    using ExViewerManager::unusedViewer;

    FakeScreen screen;
};
