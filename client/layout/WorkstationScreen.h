#pragma once

#include "framework/viewers/ExScreen.h"

class ViewerArea;

/// The workstation's one screen: the viewer area of its main window, which must outlive it. A
/// viewer in full-screen placement hides the others.
class WorkstationScreen final : public ExScreen
{
public:
    explicit WorkstationScreen(ViewerArea &area);

    void reconfigure() override;
    [[nodiscard]] int numScreens() const override { return 1; }
    [[nodiscard]] int numScreenRects() const override { return 1; }
    [[nodiscard]] QRect screenRect(int screen) const override;
    [[nodiscard]] bool isContiguous() const override { return true; }
    [[nodiscard]] QString screenName(int screen) const override;
    [[nodiscard]] QWidget *screenWidget(int screen) const override;
    [[nodiscard]] QRect childRect(const QWidget *widget, const McBox2f &box) const override;
    void raiseScreen(int screen) override;

private:
    ViewerArea &m_area;
};
