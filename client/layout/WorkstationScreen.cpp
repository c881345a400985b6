#include "client/layout/WorkstationScreen.h"

#include "client/layout/ViewerArea.h"

#include <QWidget>

#include <cmath>

namespace {

/// Pixels between neighbouring viewers.
constexpr int gap = 4;

int edge(float fraction, int length)
{
    return static_cast<int>(std::lround(fraction * static_cast<float>(length + gap)));
}

} // namespace

WorkstationScreen::WorkstationScreen(ViewerArea &area, int number)
    : m_area(area)
    , m_number(number)
{ }

void WorkstationScreen::reconfigure()
{
    if (!isReconfigureEnabled()) {
        return;
    }
    QList<QWidget *> widgets;
    childWidgets(widgets);
    const QWidget *const alone = fullscreenWidget(0);
    for (QWidget *widget : widgets) {
        widget->setVisible(alone == nullptr || alone == widget);
    }
    ExScreen::reconfigure();
}

QRect WorkstationScreen::screenRect(int /*screen*/) const
{
    return {m_area.mapToGlobal(QPoint()), m_area.size()};
}

QString WorkstationScreen::screenName(int /*screen*/) const
{
    return m_area.window()->windowTitle();
}

QWidget *WorkstationScreen::screenWidget(int /*screen*/) const
{
    return &m_area;
}

QRect WorkstationScreen::childRect(const QWidget * /*widget*/, const McBox2f &box) const
{
    const QPoint first(edge(box.xMin(), m_area.width()), edge(box.yMin(), m_area.height()));
    const QPoint last(
        edge(box.xMax(), m_area.width()) - gap, edge(box.yMax(), m_area.height()) - gap);
    return {first, QSize(last.x() - first.x(), last.y() - first.y())};
}

void WorkstationScreen::raiseScreen(int /*screen*/)
{
    m_area.window()->raise();
    m_area.window()->activateWindow();
}
