#include "framework/viewers/ExScreen.h"

#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExBaseViewerRenderWidget.h"

#include <QWidget>

#include <algorithm>
#include <map>

class ExScreenPrivate
{
public:
    struct Child
    {
        McBox2f fullScreenBox;
        McBox2f normalBox;
        bool fullScreen = false;

        [[nodiscard]] McBox2f &boxInForce() { return fullScreen ? fullScreenBox : normalBox; }
    };

    [[nodiscard]] Child *find(const QWidget *widget)
    {
        const auto found = children.find(const_cast<QWidget *>(widget));
        return found == children.end() ? nullptr : &found->second;
    }

    std::map<QWidget *, Child> children;
    bool reconfigureEnabled = true;
};

namespace {

QWidget *widgetOf(const ExBaseViewer *viewer)
{
    return viewer == nullptr ? nullptr : viewer->renderWidget();
}

bool keepsPlacement(QWidget *widget)
{
    auto *const renderWidget = qobject_cast<ExBaseViewerRenderWidget *>(widget);
    const ExBaseViewer *const viewer = renderWidget == nullptr ? nullptr : renderWidget->viewer();
    return viewer != nullptr && viewer->keepsPlacement();
}

/// Maps @p box, which lies in @p from, to where it lies in @p to.
McBox2f mapped(const McBox2f &box, const McBox2f &from, const McBox2f &to)
{
    if (box.isEmpty()) {
        return box;
    }
    const float scaleX = from.width() > 0 ? to.width() / from.width() : 0;
    const float scaleY = from.height() > 0 ? to.height() / from.height() : 0;
    const auto x = [&](float value) { return to.xMin() + (value - from.xMin()) * scaleX; };
    const auto y = [&](float value) { return to.yMin() + (value - from.yMin()) * scaleY; };
    return {x(box.xMin()), y(box.yMin()), x(box.xMax()), y(box.yMax())};
}

} // namespace

ExScreen::ExScreen()
    : d(std::make_shared<ExScreenPrivate>())
{ }

ExScreen::ExScreen(const ExScreen &) = default;

ExScreen &ExScreen::operator=(const ExScreen &) = default;

ExScreen::~ExScreen() = default;

int ExScreen::numColumns() const
{
    return std::max(numScreens(), 1);
}

void ExScreen::setChildGeometry(QWidget *widget, const McBox2f &box)
{
    if (ExScreenPrivate::Child *const child = d->find(widget)) {
        child->boxInForce() = box;
        widget->setGeometry(childRect(widget, box));
    }
}

void ExScreen::setChildGeometry(ExBaseViewer *viewer, const McBox2f &box)
{
    setChildGeometry(widgetOf(viewer), box);
}

void ExScreen::reconfigure()
{
    if (!d->reconfigureEnabled) {
        return;
    }
    // A resized widget may add and remove children.
    QList<QWidget *> widgets;
    childWidgets(widgets);
    for (QWidget *widget : widgets) {
        if (ExScreenPrivate::Child *const child = d->find(widget)) {
            widget->setGeometry(childRect(widget, child->boxInForce()));
        }
    }
    ExNotifiable::notify(ExNotification::SCREEN_RECONFIGURED);
}

void ExScreen::addWidget(QWidget *widget, const McBox2f &box)
{
    if (widget == nullptr) {
        return;
    }
    d->children.insert_or_assign(widget, ExScreenPrivate::Child{McBox2f(), box, false});
    reconfigure();
}

void ExScreen::addWidget(ExBaseViewer *viewer, const McBox2f &box)
{
    addWidget(widgetOf(viewer), box);
}

void ExScreen::removeWidget(QWidget *widget)
{
    d->children.erase(widget);
}

void ExScreen::removeWidget(ExBaseViewer *viewer)
{
    removeWidget(widgetOf(viewer));
}

void ExScreen::removeAllWidgets()
{
    d->children.clear();
}

int ExScreen::numWidgets() const
{
    return static_cast<int>(d->children.size());
}

void ExScreen::childWidgets(QList<QWidget *> &widgets) const
{
    for (const auto &[widget, child] : d->children) {
        widgets.append(widget);
    }
}

bool ExScreen::getChildGeometry(QWidget *widget, McBox2f &box) const
{
    const ExScreenPrivate::Child *const child = d->find(widget);
    if (child != nullptr) {
        box = child->normalBox;
    }
    return child != nullptr;
}

bool ExScreen::getChildGeometry(ExBaseViewer *viewer, McBox2f &box) const
{
    return getChildGeometry(widgetOf(viewer), box);
}

bool ExScreen::getChildWindowRect(ExBaseViewer *viewer, QRect &rect) const
{
    const QWidget *const widget = widgetOf(viewer);
    ExScreenPrivate::Child *const child = d->find(widget);
    if (child != nullptr) {
        rect = childRect(widget, child->boxInForce());
    }
    return child != nullptr;
}

void ExScreen::setReconfigureEnabled(bool enabled)
{
    d->reconfigureEnabled = enabled;
}

bool ExScreen::isReconfigureEnabled() const
{
    return d->reconfigureEnabled;
}

McBox2f ExScreen::normalizedScreenGeometry(int first, int last) const
{
    const auto columns = static_cast<float>(numColumns());
    return {static_cast<float>(first) / columns, 0, static_cast<float>(last + 1) / columns, 1};
}

int ExScreen::screenIndex(QWidget *widget) const
{
    if (widget == nullptr) {
        return -1;
    }
    if (numScreens() < 2) {
        return 0;
    }
    const QPoint topLeft = widget->mapToGlobal(QPoint(0, 0));
    const int count = numScreenRects();
    for (int screen = 0; screen < count; ++screen) {
        if (screenRect(screen).contains(topLeft)) {
            return screen;
        }
    }
    return -1;
}

int ExScreen::screenIndex(ExBaseViewer *viewer) const
{
    return screenIndex(widgetOf(viewer));
}

void ExScreen::overlappingScreens(QWidget *widget, int &first, int &last) const
{
    constexpr float tolerance = 0.01F;
    first = -1;
    last = -1;
    const ExScreenPrivate::Child *const child = d->find(widget);
    if (child == nullptr) {
        return;
    }
    const int columns = numColumns();
    for (int column = 0; column < columns; ++column) {
        const McBox2f box = normalizedScreenGeometry(column, column);
        if (box.xMax() - tolerance >= child->normalBox.xMin()
            && child->normalBox.xMax() >= box.xMin() + tolerance) {
            last = column;
            first = first < 0 ? column : first;
        }
    }
}

QList<QWidget *> ExScreen::coveredWidgets(int first, int last) const
{
    QList<QWidget *> widgets;
    for (const auto &[widget, child] : d->children) {
        int firstOverlapped = -1;
        int lastOverlapped = -1;
        overlappingScreens(widget, firstOverlapped, lastOverlapped);
        if (firstOverlapped >= first && lastOverlapped <= last) {
            widgets.append(widget);
        }
    }
    return widgets;
}

bool ExScreen::isFullscreen(QWidget *widget) const
{
    const ExScreenPrivate::Child *const child = d->find(widget);
    return child != nullptr && child->fullScreen;
}

bool ExScreen::isFullscreen(const ExBaseViewer *viewer) const
{
    return isFullscreen(widgetOf(viewer));
}

bool ExScreen::setFullscreen(QWidget *widget, bool on)
{
    ExScreenPrivate::Child *const child = d->find(widget);
    if (child == nullptr || child->fullScreen == on) {
        return false;
    }
    if (on) {
        int first = -1;
        int last = -1;
        overlappingScreens(widget, first, last);
        if (first < 0) {
            return false;
        }
        child->fullScreenBox = normalizedScreenGeometry(first, last);
    }
    child->fullScreen = on;
    return true;
}

bool ExScreen::setFullscreen(ExBaseViewer *viewer, bool on)
{
    return setFullscreen(widgetOf(viewer), on);
}

QWidget *ExScreen::fullscreenWidget(int screen) const
{
    for (const auto &[widget, child] : d->children) {
        int first = -1;
        int last = -1;
        overlappingScreens(widget, first, last);
        if (child.fullScreen && first <= screen && screen <= last) {
            return widget;
        }
    }
    return nullptr;
}

int ExScreen::numViewersOnSameScreen(ExBaseViewer *viewer) const
{
    const bool oneScreen = numScreens() == 1;
    const int wanted = oneScreen ? 0 : screenIndex(viewer);
    return static_cast<int>(
        std::count_if(d->children.begin(), d->children.end(), [&](const auto &entry) {
            QWidget *const widget = entry.first;
            return widget->isVisible() && (oneScreen || screenIndex(widget) == wanted);
        }));
}

void ExScreen::scaleWidgets(int first, int last, float sx, float sy)
{
    QList<QWidget *> widgets = coveredWidgets(first, last);
    widgets.removeIf(keepsPlacement);
    McBox2f normalUnion;
    McBox2f fullScreenUnion;
    for (const QWidget *widget : widgets) {
        const ExScreenPrivate::Child *const child = d->find(widget);
        normalUnion = normalUnion.united(child->normalBox);
        fullScreenUnion = fullScreenUnion.united(child->fullScreenBox);
    }
    const McBox2f columns = normalizedScreenGeometry(first, last);
    const McBox2f target(columns.xMin(), columns.yMin(), columns.xMin() + columns.width() * sx,
        columns.yMin() + columns.height() * sy);
    for (const QWidget *widget : widgets) {
        ExScreenPrivate::Child *const child = d->find(widget);
        child->normalBox = mapped(child->normalBox, normalUnion, target);
        child->fullScreenBox = mapped(child->fullScreenBox, fullScreenUnion, target);
    }
}
