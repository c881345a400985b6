#include "framework/editors/EditorTabBar.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int leastTarget = 24;

}

EditorTabBar::EditorTabBar(QWidget *parent)
    : QTabBar(parent)
{ }

int EditorTabBar::positionAt(const QPoint &position) const
{
    for (int i = 0; i < count(); ++i) {
        const bool isBefore = layoutDirection() == Qt::RightToLeft
            ? position.x() > tabRect(i).center().x()
            : position.x() < tabRect(i).center().x();
        if (isBefore) {
            return i;
        }
    }
    return count();
}

QSize EditorTabBar::tabSizeHint(int index) const
{
    return QTabBar::tabSizeHint(index).expandedTo({leastTarget, leastTarget});
}

void EditorTabBar::mousePressEvent(QMouseEvent *event)
{
    m_isPressed = event->button() == Qt::LeftButton && tabAt(event->position().toPoint()) >= 0;
    QTabBar::mousePressEvent(event);
}

void EditorTabBar::mouseMoveEvent(QMouseEvent *event)
{
    const int slack = QApplication::startDragDistance();
    const QRect inside = rect().adjusted(-slack, -slack, slack, slack);
    const bool isHeld = m_isPressed && (event->buttons() & Qt::LeftButton) != 0;
    if (!isHeld || inside.contains(event->position().toPoint())) {
        QTabBar::mouseMoveEvent(event);
        return;
    }
    m_isPressed = false;
    // The bar's own dragging ends here, so that the tab slides back into its place.
    QMouseEvent release(QEvent::MouseButtonRelease, event->position(), event->globalPosition(),
        Qt::LeftButton, Qt::NoButton, event->modifiers());
    QTabBar::mouseReleaseEvent(&release);
    Q_EMIT draggedOut(currentIndex(), event->globalPosition().toPoint());
}

void EditorTabBar::mouseReleaseEvent(QMouseEvent *event)
{
    m_isPressed = false;
    QTabBar::mouseReleaseEvent(event);
}

void EditorTabBar::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const int index = isByKey ? currentIndex() : tabAt(event->pos());
    if (index >= 0) {
        Q_EMIT optionsRequested(
            index, isByKey ? mapToGlobal(tabRect(index).bottomLeft()) : event->globalPos());
    }
}

EditorOptionsButton::EditorOptionsButton(QWidget *parent)
    : QToolButton(parent)
{
    setObjectName(QStringLiteral("EditorOptions"));
    setAutoRaise(true);
}

QSize EditorOptionsButton::sizeHint() const
{
    return {leastTarget, leastTarget};
}

void EditorOptionsButton::paintEvent(QPaintEvent *event)
{
    QToolButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().buttonText());
    constexpr double distance = 5;
    constexpr double radius = 1.5;
    const QPointF middle = QRectF(rect()).center();
    for (const double step : {-distance, 0.0, distance}) {
        painter.drawEllipse(middle + QPointF(0, step), radius, radius);
    }
}
