#pragma once

#include "framework/viewers/ExScreen.h"

/// Screens of 1000 x 500 pixels side by side; a child's rectangle is its box over all of them.
class FakeScreen : public ExScreen
{
public:
    static constexpr int width = 1000;
    static constexpr int height = 500;

    explicit FakeScreen(int numScreens = 1)
        : screens(numScreens)
    { }

    [[nodiscard]] int numScreens() const override { return screens; }
    [[nodiscard]] int numScreenRects() const override { return screens; }
    [[nodiscard]] QRect screenRect(int screen) const override;
    [[nodiscard]] bool isContiguous() const override { return true; }
    [[nodiscard]] QString screenName(int screen) const override;
    [[nodiscard]] QWidget *screenWidget(int /*screen*/) const override { return nullptr; }
    [[nodiscard]] QRect childRect(const QWidget *widget, const McBox2f &box) const override;
    void raiseScreen(int /*screen*/) override { }

    using ExScreen::childWidgets;
    using ExScreen::setChildGeometry;

    int screens;
};
