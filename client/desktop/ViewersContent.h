#pragma once

#include "client/layout/ViewerArea.h"
#include "framework/monitors/ExMonitorWidget.h"

#include <QList>
#include <QObject>

#include <memory>
#include <vector>

class ViewerPage;

/// The content "viewers": a page with a viewer area on each monitor that it occupies. Pages follow
/// the monitors: one whose monitor stays is kept whatever its number, one whose monitor is left
/// moves to a new monitor, and only where there are fewer monitors than before a page goes.
class ViewersContent final : public QObject, public ExMonitorWidget::Content
{
    Q_OBJECT

public:
    ViewersContent();
    ~ViewersContent() override;

    [[nodiscard]] QWidget *widgetForMonitor(
        const ExMonitorWidget::Configuration &configuration, int monitor) override;
    void configurationChanged(const ExMonitorWidget::Configuration &configuration) override;
    /// In the order of the monitors.
    [[nodiscard]] QList<ViewerPage *> pages() const;
    /// Those of the pages.
    [[nodiscard]] QList<ViewerArea *> areas() const;
    /// Null when there is none on this monitor.
    [[nodiscard]] ViewerPage *pageOn(int monitor) const;

Q_SIGNALS:
    /// Areas that are not among these any longer are destroyed after it, with their pages.
    void areasChanged(const QList<ViewerArea *> &areas);

private:
    struct Page
    {
        int monitor = -1;
        /// Who the monitor is, whatever its number.
        QString identity;
        std::unique_ptr<ViewerPage> widget;
    };

    [[nodiscard]] bool occupies(const QList<int> &monitors) const;
    void occupy(const QList<int> &monitors);
    /// Gives each monitor its page. @return those that none is left for.
    [[nodiscard]] std::vector<Page> movePages(const QList<int> &monitors);

    std::vector<Page> m_pages;
};
