#include "framework/editors/SplitterButton.h"

#include "platform/toolkit/QxStyleFactory.h"

#include <QMouseEvent>
#include <QStyle>

SplitterButton::SplitterButton(QWidget *parent)
    : QToolButton(parent)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setToolTip(tr("Fold this side away, or bring it back"));
    setAccessibleName(toolTip());
    setArrow(Qt::LeftArrow);
    updateColors();
}

void SplitterButton::setArrow(Qt::ArrowType arrow)
{
    const bool isHorizontal = arrow == Qt::LeftArrow || arrow == Qt::RightArrow;
    const QString name = isHorizontal ? QStringLiteral("SplitterButton.Horizontal")
                                      : QStringLiteral("SplitterButton.Vertical");
    setArrowType(arrow);
    if (objectName() != name) {
        setObjectName(name);
        // Rules of a style sheet are matched by name only when a widget is polished.
        style()->unpolish(this);
        style()->polish(this);
    }
}

void SplitterButton::updateColors()
{
    const QxStyleFactory &style = QxStyleFactory::instance();
    QPalette colors = palette();
    colors.setColor(QPalette::Button, style.color(QxStyleFactory::ColorRole::Raised));
    colors.setColor(QPalette::ButtonText,
        style.textColor(
            QxStyleFactory::ColorRole::SecondaryText, QxStyleFactory::ColorRole::Raised));
    setPalette(colors);
}

QSize SplitterButton::sizeHint() const
{
    constexpr int side = 50;
    return {side, side};
}

void SplitterButton::mousePressEvent(QMouseEvent *event)
{
    QToolButton::mousePressEvent(event);
    event->accept();
}

void SplitterButton::mouseReleaseEvent(QMouseEvent *event)
{
    QToolButton::mouseReleaseEvent(event);
    event->accept();
}

void SplitterButton::mouseMoveEvent(QMouseEvent *event)
{
    QToolButton::mouseMoveEvent(event);
    event->accept();
}

void SplitterButton::paintEvent(QPaintEvent *event)
{
    if (QxStyleFactory::showSplitterButton()) {
        QToolButton::paintEvent(event);
    }
}
