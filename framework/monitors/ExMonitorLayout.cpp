#include "framework/monitors/ExMonitorLayout.h"

#include <QWidgetItem>

#include <algorithm>

namespace {

/// Maps a coordinate of the monitors to one of the widget.
int mapped(int value, int from, int length, int to, int newLength)
{
    const qint64 offset = qint64{value} - from;
    return to + static_cast<int>((offset * newLength + length / 2) / length);
}

} // namespace

ExMonitorLayout::ExMonitorLayout(QWidget *parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

ExMonitorLayout::~ExMonitorLayout() = default;

void ExMonitorLayout::addWidget(QWidget *widget, const QRect &monitor)
{
    addChildWidget(widget);
    m_places.push_back({std::make_unique<QWidgetItem>(widget), monitor});
    invalidate();
}

void ExMonitorLayout::setMonitorRect(const QWidget *widget, const QRect &monitor)
{
    for (Place &place : m_places) {
        if (place.item->widget() == widget) {
            place.monitor = monitor;
            invalidate();
        }
    }
}

void ExMonitorLayout::addItem(QLayoutItem *item)
{
    m_places.push_back({std::unique_ptr<QLayoutItem>(item), QRect()});
    invalidate();
}

QLayoutItem *ExMonitorLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_places[static_cast<std::size_t>(index)].item.get()
                                         : nullptr;
}

QLayoutItem *ExMonitorLayout::takeAt(int index)
{
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    const auto place = m_places.begin() + index;
    QLayoutItem *const item = place->item.release();
    m_places.erase(place);
    invalidate();
    return item;
}

int ExMonitorLayout::count() const
{
    return static_cast<int>(m_places.size());
}

QRect ExMonitorLayout::total() const
{
    QRect all;
    for (const Place &place : m_places) {
        all |= place.monitor;
    }
    return all;
}

void ExMonitorLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    const QRect all = total();
    for (const Place &place : m_places) {
        const QRect &monitor = place.monitor;
        if (!monitor.isValid()) {
            place.item->setGeometry(rect);
            continue;
        }
        const int left = mapped(monitor.left(), all.left(), all.width(), rect.left(), rect.width());
        const int end
            = mapped(monitor.right() + 1, all.left(), all.width(), rect.left(), rect.width());
        const int top = mapped(monitor.top(), all.top(), all.height(), rect.top(), rect.height());
        const int bottom
            = mapped(monitor.bottom() + 1, all.top(), all.height(), rect.top(), rect.height());
        place.item->setGeometry({left, top, end - left, bottom - top});
    }
}

QSize ExMonitorLayout::sizeHint() const
{
    QSize size;
    for (const Place &place : m_places) {
        const QSize one = place.item->sizeHint();
        size = {std::max(size.width(), 0) + one.width(), std::max(size.height(), one.height())};
    }
    return size;
}

QSize ExMonitorLayout::minimumSize() const
{
    QSize size(0, 0);
    for (const Place &place : m_places) {
        size = size.expandedTo(place.item->minimumSize());
    }
    return size;
}
