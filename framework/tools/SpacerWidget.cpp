#include "framework/tools/SpacerWidget.h"

SpacerWidget::SpacerWidget(int size, QWidget *parent)
    : QWidget(parent)
    , m_size(size)
{ }

void SpacerWidget::updateOrientation(Qt::Orientation orientation)
{
    setMinimumWidth(orientation == Qt::Horizontal ? m_size : 0);
    setMinimumHeight(orientation == Qt::Vertical ? m_size : 0);
}
