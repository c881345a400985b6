#pragma once

#include "framework/viewers/ExScreen.h"

#include <QString>

class ViewerArea;

/// A screen of the workstation: the viewer area on one monitor, which must outlive it. A viewer in
/// full-screen placement hides the others of the screen.
class WorkstationScreen final : public ExScreen
{
public:
    /// @param number tells it from the other screens; from 1 on.
    WorkstationScreen(ViewerArea &area, int number);

    [[nodiscard]] ViewerArea &area() const { return m_area; }
    [[nodiscard]] int number() const { return m_number; }
    /// The name of the layout applied last; empty before.
    [[nodiscard]] const QString &layout() const { return m_layout; }
    void setLayout(const QString &name) { m_layout = name; }

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
    int m_number;
    QString m_layout;
};
