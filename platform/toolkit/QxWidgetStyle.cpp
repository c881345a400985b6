#include "platform/toolkit/QxWidgetStyle.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace {

/// Two arrows, ">>", turned to where the rest of the tool bar would be.
class MoreIcon final : public QIconEngine
{
public:
    explicit MoreIcon(double degrees)
        : m_degrees(degrees)
    { }
    [[nodiscard]] QIconEngine *clone() const override { return new MoreIcon(m_degrees); }
    void paint(
        QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        constexpr QPointF arrow[] = {{-2, -3}, {1, 0}, {-2, 3}};
        constexpr double unitsAcross = 12;
        const double scale = std::min(rect.width(), rect.height()) / unitsAcross;
        const QPalette::ColorGroup group
            = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Normal;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText), 1.25));
        painter->translate(QRectF(rect).center());
        painter->rotate(m_degrees);
        painter->scale(scale, scale);
        for (const double shift : {-1.5, 2.5}) {
            painter->translate(shift, 0);
            painter->drawPolyline(arrow, static_cast<int>(std::size(arrow)));
        }
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        if (size.isEmpty()) {
            return {};
        }
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

private:
    double m_degrees;
};

} // namespace

QxWidgetStyle::QxWidgetStyle()
    : QProxyStyle(QStringLiteral("fusion"))
{ }

QSize QxWidgetStyle::sizeFromContents(
    ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *widget) const
{
    constexpr int leastHeight = 24;
    const QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    return type == CT_ItemViewItem ? result.expandedTo(QSize(0, leastHeight)) : result;
}

void QxWidgetStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
    QPainter *painter, const QWidget *widget) const
{
    constexpr PrimitiveElement boxes[]
        = {PE_IndicatorCheckBox, PE_IndicatorRadioButton, PE_IndicatorItemViewItemCheck};
    const auto *const button = qstyleoption_cast<const QStyleOptionButton *>(option);
    const auto *const item = qstyleoption_cast<const QStyleOptionViewItem *>(option);
    const bool isBox = std::find(std::begin(boxes), std::end(boxes), element) != std::end(boxes);
    if (isBox && button != nullptr) {
        drawOutlined(element, *button, painter, widget);
    } else if (isBox && item != nullptr) {
        drawOutlined(element, *item, painter, widget);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

/// Fusion takes the outline from the ground and makes it darker.
template <class Option>
void QxWidgetStyle::drawOutlined(
    PrimitiveElement element, Option option, QPainter *painter, const QWidget *widget) const
{
    const QPalette::ColorGroup group
        = (option.state & State_Enabled) ? QPalette::Normal : QPalette::Disabled;
    option.palette.setColor(
        QPalette::Window, option.palette.color(group, QPalette::PlaceholderText));
    QProxyStyle::drawPrimitive(element, &option, painter, widget);
}

/// The toolkit's own sign is dark on dark tool bars, and read from files at every start.
QIcon QxWidgetStyle::standardIcon(
    StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const
{
    if (icon == SP_ToolBarVerticalExtensionButton) {
        return QIcon(new MoreIcon(90));
    }
    if (icon == SP_ToolBarHorizontalExtensionButton) {
        const bool toTheLeft
            = widget != nullptr ? widget->isRightToLeft() : QGuiApplication::isRightToLeft();
        return QIcon(new MoreIcon(toTheLeft ? 180 : 0));
    }
    return QProxyStyle::standardIcon(icon, option, widget);
}
