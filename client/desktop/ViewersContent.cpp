#include "client/desktop/ViewersContent.h"

#include "client/desktop/ViewerPage.h"
#include "framework/monitors/ExMonitorManager.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace {

/// The display and which part of it; monitors named by hand are known by their numbers only.
QString identityOf(int monitor)
{
    const ExMonitorManager &manager = ExMonitorManager::instance();
    for (const QList<int> &parts : manager.physicalMonitors()) {
        const auto part = parts.indexOf(monitor);
        const QPoint middle = manager.monitorRect(static_cast<unsigned int>(monitor)).center();
        const QScreen *const screen = QGuiApplication::screenAt(middle);
        if (part >= 0 && screen != nullptr) {
            return QStringLiteral("%1/%2/%3").arg(screen->name(), screen->serialNumber()).arg(part);
        }
    }
    return QString::number(monitor);
}

} // namespace

ViewersContent::ViewersContent()
{
    setLongName(QCoreApplication::translate("Contents", "Viewers"));
    setShortName(longName());
}

ViewersContent::~ViewersContent() = default;

QWidget *ViewersContent::widgetForMonitor(
    const ExMonitorWidget::Configuration &configuration, int monitor)
{
    const QList<int> none{-1};
    const QList<int> &monitors = configuration.monitors.isEmpty() ? none : configuration.monitors;
    if (!monitors.contains(monitor)) {
        return nullptr; // A window that another content has made larger.
    }
    if (!occupies(monitors)) {
        occupy(monitors);
    }
    return pageOn(monitor);
}

void ViewersContent::configurationChanged(const ExMonitorWidget::Configuration & /*record*/)
{
    QList<int> monitors = ExMonitorManager::instance().occupiedMonitors(this);
    if (monitors.isEmpty()) {
        monitors.append(-1);
    }
    occupy(monitors);
}

QList<ViewerPage *> ViewersContent::pages() const
{
    QList<ViewerPage *> pages;
    for (const Page &page : m_pages) {
        pages.append(page.widget.get());
    }
    return pages;
}

QList<ViewerArea *> ViewersContent::areas() const
{
    QList<ViewerArea *> areas;
    for (const ViewerPage *page : pages()) {
        areas.append(&page->area());
    }
    return areas;
}

ViewerPage *ViewersContent::pageOn(int monitor) const
{
    const auto found = std::find_if(m_pages.begin(), m_pages.end(),
        [monitor](const Page &page) { return page.monitor == monitor; });
    return found == m_pages.end() ? nullptr : found->widget.get();
}

bool ViewersContent::occupies(const QList<int> &monitors) const
{
    return std::equal(m_pages.begin(), m_pages.end(), monitors.begin(), monitors.end(),
        [](const Page &page, int monitor) { return page.monitor == monitor; });
}

void ViewersContent::occupy(const QList<int> &monitors)
{
    const QList<ViewerArea *> before = areas();
    const std::vector<Page> left = movePages(monitors); // Destroyed when all have been told.
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        m_pages[i].widget->setNumber(m_pages.size() == 1 ? 0 : static_cast<int>(i) + 1);
    }
    if (areas() != before) {
        Q_EMIT areasChanged(areas());
    }
}

std::vector<ViewersContent::Page> ViewersContent::movePages(const QList<int> &monitors)
{
    std::vector<Page> left = std::exchange(m_pages, {});
    for (const int monitor : monitors) {
        Page page{monitor, identityOf(monitor), nullptr};
        const auto same = std::find_if(left.begin(), left.end(),
            [&page](const Page &old) { return old.identity == page.identity; });
        if (same != left.end()) {
            page.widget = std::move(same->widget);
            left.erase(same);
        }
        m_pages.push_back(std::move(page));
    }
    for (Page &page : m_pages) {
        if (page.widget == nullptr && !left.empty()) {
            page.widget = std::move(left.front().widget);
            left.erase(left.begin());
        } else if (page.widget == nullptr) {
            page.widget = std::make_unique<ViewerPage>();
        }
    }
    return left;
}
