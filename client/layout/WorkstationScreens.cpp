#include "client/layout/WorkstationScreens.h"

#include "client/layout/ViewerArea.h"
#include "framework/viewers/ExBaseViewer.h"

#include <algorithm>

WorkstationScreen *WorkstationScreens::first() const
{
    return m_screens.empty() ? nullptr : m_screens.front().get();
}

WorkstationScreen *WorkstationScreens::find(const ViewerArea *area) const
{
    const auto found = std::find_if(m_screens.begin(), m_screens.end(),
        [area](const auto &screen) { return &screen->area() == area; });
    return found == m_screens.end() ? nullptr : found->get();
}

WorkstationScreen *WorkstationScreens::screenFor(const ExBaseViewer *viewer) const
{
    const int index = indexOf(viewer);
    return index < 0 ? nullptr : m_screens[static_cast<std::size_t>(index)].get();
}

int WorkstationScreens::indexOf(const ExBaseViewer *viewer) const
{
    const QWidget *const widget = viewer == nullptr ? nullptr : viewer->renderWidget();
    const auto found = std::find_if(m_screens.begin(), m_screens.end(), [widget](const auto &each) {
        return widget != nullptr && widget->parentWidget() == &each->area();
    });
    return found == m_screens.end() ? -1 : static_cast<int>(found - m_screens.begin());
}

WorkstationScreen &WorkstationScreens::add(ViewerArea &area)
{
    int number = 1;
    const auto isTaken = [&number](const auto &screen) { return screen->number() == number; };
    while (std::any_of(m_screens.begin(), m_screens.end(), isTaken)) {
        ++number;
    }
    return *m_screens.emplace_back(std::make_unique<WorkstationScreen>(area, number));
}

void WorkstationScreens::remove(const WorkstationScreen &screen)
{
    std::erase_if(m_screens, [&screen](const auto &each) { return each.get() == &screen; });
}

void WorkstationScreens::sort(const QList<ViewerArea *> &areas)
{
    std::sort(m_screens.begin(), m_screens.end(), [&areas](const auto &a, const auto &b) {
        return areas.indexOf(&a->area()) < areas.indexOf(&b->area());
    });
}
