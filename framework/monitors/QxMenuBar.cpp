#include "framework/monitors/QxMenuBar.h"

#include <algorithm>

QxMenuBar::QxMenuBar(QWidget *parent)
    : QMenuBar(parent)
{
    setNativeMenuBar(false);
}

int QxMenuBar::heightForWidth(int width) const
{
    const QWidget *const corner = cornerWidget(Qt::TopRightCorner);
    const bool shown = corner != nullptr && !corner->isHidden();
    const QSize needed = shown ? corner->sizeHint() : QSize(0, 0);
    return std::max(QMenuBar::heightForWidth(std::max(width - needed.width(), 1)), needed.height());
}

QSize QxMenuBar::sizeHint() const
{
    const int width = QMenuBar::sizeHint().width();
    return {width, heightForWidth(std::max(width, this->width()))};
}

QSize QxMenuBar::minimumSizeHint() const
{
    return {QMenuBar::minimumSizeHint().width(), sizeHint().height()};
}

void QxMenuBar::resizeEvent(QResizeEvent *event)
{
    QMenuBar::resizeEvent(event);
    // Another width may need another number of lines, and the corner widget another place.
    updateGeometry();
}
