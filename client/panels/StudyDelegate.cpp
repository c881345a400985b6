#include "client/panels/StudyDelegate.h"

#include "platform/toolkit/QxStyleFactory.h"

#include <QApplication>
#include <QPainter>

namespace {

using Role = QxStyleFactory::ColorRole;

constexpr int space = 4;
/// Whatever can be pointed at is as high.
constexpr int leastHeight = 24;

struct Colors
{
    QColor title;
    QColor detail;
    QColor mark;
};

Colors colorsFor(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QPalette &palette = option.palette;
    if ((option.state & QStyle::State_Selected) != 0) {
        const QColor color = palette.color(QPalette::HighlightedText);
        return {color, color, color};
    }
    const QColor detail = palette.color(QPalette::PlaceholderText);
    return {
        index.data(StudyDelegate::IsImageRole).toBool() ? palette.color(QPalette::Text) : detail,
        detail, QxStyleFactory::instance().textColor(Role::Warning, Role::Panel)};
}

void drawPicture(QPainter &painter, const QRect &square, const QStyleOptionViewItem &option,
    const QModelIndex &index)
{
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    if (!icon.isNull()) {
        icon.paint(&painter, square, Qt::AlignCenter);
        return;
    }
    painter.setPen(option.palette.color(QPalette::Mid));
    if (index.data(StudyDelegate::IsImageRole).toBool()) {
        painter.fillRect(square, QxStyleFactory::instance().color(Role::ViewerGround));
    } else {
        painter.drawRoundedRect(QRectF(square).adjusted(0.5, 0.5, -0.5, -0.5), space, space);
    }
    const bool isOnGround = index.data(StudyDelegate::IsImageRole).toBool();
    painter.setPen(isOnGround
            ? QxStyleFactory::instance().textColor(Role::SecondaryText, Role::ViewerGround)
            : colorsFor(option, index).detail);
    painter.drawText(square, Qt::AlignCenter, index.data(StudyDelegate::ModalityRole).toString());
}

/// @return where the text ends.
int drawLine(QPainter &painter, const QRect &line, const QString &text)
{
    const QString shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, line.width());
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, shown);
    return line.left() + painter.fontMetrics().horizontalAdvance(shown);
}

void drawTexts(QPainter &painter, const QRect &area, const QStyleOptionViewItem &option,
    const QModelIndex &index)
{
    const QStringList lines = index.data(Qt::DisplayRole).toString().split(u'\n');
    const Colors colors = colorsFor(option, index);
    const int lineHeight = option.fontMetrics.height();
    QRect line(area.left(), 0, area.width(), lineHeight);
    line.moveTop(area.center().y() - static_cast<int>(lines.size()) * lineHeight / 2);
    painter.setFont(option.font);
    painter.setPen(colors.title);
    drawLine(painter, line, lines.first());
    if (lines.size() == 1) {
        return;
    }
    line.translate(0, lineHeight);
    QFont plain = option.font;
    plain.setBold(false);
    painter.setFont(plain);
    painter.setPen(colors.detail);
    const QString mark = index.data(StudyDelegate::MarkRole).toString();
    const QString detail = mark.isEmpty() ? lines[1] : lines[1] % QStringLiteral("  ");
    line.setLeft(drawLine(painter, line, detail));
    painter.setPen(colors.mark);
    drawLine(painter, line, mark);
}

} // namespace

void StudyDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem styled = option;
    initStyleOption(&styled, index);
    styled.text.clear();
    styled.icon = {};
    const QStyle *const style = styled.widget ? styled.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &styled, painter, styled.widget);
    painter->save();
    QRect area = styled.rect.adjusted(space, 0, -space, 0);
    if (index.data(IsSeriesRole).toBool()) {
        const QSize size = styled.decorationSize;
        const QRect square(
            area.left(), area.center().y() - size.height() / 2, size.width(), size.height());
        drawPicture(*painter, square, styled, index);
        area.setLeft(square.right() + 2 * space);
    }
    drawTexts(*painter, area, styled, index);
    painter->restore();
}

QSize StudyDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const int line = option.fontMetrics.height();
    if (!index.data(IsSeriesRole).toBool()) {
        return {0, qMax(leastHeight, line + 2 * space)};
    }
    return {0, qMax(2 * line, option.decorationSize.height()) + 2 * space};
}
