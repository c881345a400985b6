#include "client/panels/StatusText.h"

#include "platform/toolkit/QxStyleFactory.h"

void StatusText::showText(const QString &text)
{
    m_isWarning = false;
    setPalette({}); // That of the window again.
    setText(text);
}

void StatusText::showWarning(const QString &text)
{
    m_isWarning = true;
    using Role = QxStyleFactory::ColorRole;
    QPalette colors;
    colors.setColor(
        QPalette::WindowText, QxStyleFactory::instance().textColor(Role::Warning, Role::Window));
    setPalette(colors);
    setText(text);
}
