#include "client/panels/PanelButton.h"

#include "client/application/SvgIconEngine.h"

PanelButton::PanelButton(const QString &name, const QString &icon, const QString &text)
{
    constexpr int side = 24;
    setObjectName(name);
    setIcon(QIcon(new SvgIconEngine(icon)));
    setIconSize({side, side});
    setToolTip(text);
    setAccessibleName(text);
    setAutoRaise(true);
}
