#include "client/panels/LinkDelegate.h"

#include "client/overlay/OverlayColors.h"
#include "platform/toolkit/QxStyleFactory.h"

#include <QApplication>
#include <QPainter>

namespace {

using Color = QxStyleFactory::ColorRole;

constexpr int space = 4;

QColor hueOf(const QModelIndex &index)
{
    const int number = index.data(LinkDelegate::NumberRole).toInt();
    const bool isOn = index.data(LinkDelegate::IsEnabledRole).toBool();
    return number >= 0 && isOn ? OverlayColors::measurement(number)
                               : QxStyleFactory::instance().color(Color::SecondaryText);
}

void drawLabel(QPainter &painter, const QRect &rect, const QModelIndex &index)
{
    const bool isAttached = index.data(LinkDelegate::IsAttachedRole).toBool();
    const QColor hue = hueOf(index);
    QColor fill = hue;
    constexpr int faint = 64;
    fill.setAlpha(isAttached ? faint : 0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(hue, 1, isAttached ? Qt::SolidLine : Qt::DashLine));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), space, space);
    const bool isStrong = isAttached && index.data(LinkDelegate::IsEnabledRole).toBool();
    painter.setPen(QxStyleFactory::instance().textColor(
        isStrong ? Color::Text : Color::SecondaryText, Color::Panel));
    painter.drawText(rect.adjusted(space, 0, -space, 0), Qt::AlignCenter,
        painter.fontMetrics().elidedText(
            index.data().toString(), Qt::ElideRight, rect.width() - 2 * space));
}

} // namespace

void LinkDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem styled = option;
    initStyleOption(&styled, index);
    const bool isSelected = (styled.state & QStyle::State_Selected) != 0;
    const bool isLinked = index.data(NumberRole).isValid();
    styled.state.setFlag(QStyle::State_Selected, false);
    if (isLinked) {
        styled.text.clear();
    }
    const QStyle *const style = styled.widget ? styled.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &styled, painter, styled.widget);
    painter->save();
    if (isLinked) {
        drawLabel(*painter, styled.rect.adjusted(space, space, -space, -space), index);
    }
    if (isSelected) {
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(QxStyleFactory::instance().color(Color::Accent), 2));
        painter->drawRect(styled.rect.adjusted(1, 1, -1, -1));
    }
    painter->restore();
}
