#pragma once

#include <QProxyStyle>

/// Fusion with list entries high enough to be hit, with boxes to check whose outline is seen, and
/// with a sign for the hidden rest of a tool bar that is seen on every ground. Not in the style
/// sheet: views that are laid out before they are polished would keep the lower height, and boxes
/// with a rule would lose their marks.
class QxWidgetStyle final : public QProxyStyle
{
public:
    QxWidgetStyle();

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
        const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget) const override;
    QIcon standardIcon(
        StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const override;

private:
    template <class Option>
    void drawOutlined(
        PrimitiveElement element, Option option, QPainter *painter, const QWidget *widget) const;
};
