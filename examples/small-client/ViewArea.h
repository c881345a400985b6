#pragma once

#include "SliceView.h"
#include "framework/notification/ExNotifiables.h"
#include "framework/tools/ExTool.h"
#include "framework/viewers/ExScreen.h"
#include "framework/viewers/ExViewerManager.h"

#include <QWidget>

/// The widget that the views stand in.
class ViewArea final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

Q_SIGNALS:
    void resized();

protected:
    void resizeEvent(QResizeEvent * /*event*/) override { Q_EMIT resized(); }
};

/// One screen, which fills the area. Boxes are fractions of it.
class AreaScreen final : public ExScreen
{
public:
    explicit AreaScreen(ViewArea &area)
        : m_area(area)
    { }
    [[nodiscard]] int numScreens() const override { return 1; }
    [[nodiscard]] int numScreenRects() const override { return 1; }
    [[nodiscard]] QRect screenRect(int /*screen*/) const override
    {
        return {m_area.mapToGlobal(QPoint()), m_area.size()};
    }
    [[nodiscard]] bool isContiguous() const override { return true; }
    [[nodiscard]] QString screenName(int /*screen*/) const override { return {}; }
    [[nodiscard]] QWidget *screenWidget(int /*screen*/) const override { return &m_area; }
    [[nodiscard]] QRect childRect(const QWidget * /*widget*/, const McBox2f &box) const override
    {
        const auto width = float(m_area.width());
        const auto height = float(m_area.height());
        return QRectF(QPointF(box.xMin() * width, box.yMin() * height),
            QPointF(box.xMax() * width, box.yMax() * height))
            .toRect();
    }
    void raiseScreen(int /*screen*/) override { m_area.window()->raise(); }

private:
    ViewArea &m_area;
};

/// Owns the views.
class Views final : public ExViewerManager
{
public:
    explicit Views(ViewArea &area)
        : m_area(area)
        , m_screen(area)
    {
        QObject::connect(&area, &ViewArea::resized, &area, [this] { m_screen.reconfigure(); });
    }
    ~Views() override
    {
        m_area.disconnect();
        setActiveViewer(nullptr);
        removeAllViewers();
    }
    ExScreen *screenForViewer(ExBaseViewer * /*viewer*/) override { return &m_screen; }

    void add(SliceView &view, const McBox2f &box)
    {
        addViewer(&view, box, true);
        view.renderWidget()->show();
        ExNotifiable::notify({ExNotification::VIEWER_CREATED, &view});
    }

private:
    ViewArea &m_area;
    AreaScreen m_screen;
};

/// Keeps frames and tools up to date when another view becomes the active one, or changes.
class ViewWatch final : public ExNotifiable
{
public:
    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotifications(this, ExNotification::ACTIVE_VIEWER_CHANGED,
            ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::COLORMAP_CHANGED,
            ExNotification::NONE);
    }
    void notified(const ExNotification &notification) override
    {
        if (notification.type() == ExNotification::ACTIVE_VIEWER_CHANGED) {
            repaint(notification.viewer());
            repaint(static_cast<ExBaseViewer *>(notification.data())); // the one before
        }
        std::vector<std::string> keys;
        ExTool::getDecorationKeyList(keys, false);
        for (const std::string &key : keys) {
            if (const ExTool *const tool = ExTool::getToolByDecorationKey(key.c_str(), false)) {
                tool->updateUI(nullptr);
            }
        }
    }

private:
    static void repaint(const ExBaseViewer *viewer)
    {
        if (viewer != nullptr && viewer->renderWidget() != nullptr) {
            viewer->renderWidget()->update();
        }
    }
};
