#include "client/application/UiRegistry.h"

#include <QAction>
#include <QWidget>

namespace {

void setObjectNameOnce(QObject &object, const QString &name)
{
    if (object.objectName().isEmpty()) {
        object.setObjectName(name);
    }
}

} // namespace

void UiRegistry::registerWidget(QWidget *widget, const QString &name)
{
    if (widget == nullptr) {
        return;
    }
    setObjectNameOnce(*widget, name);
    if (widget->accessibleName().isEmpty()) {
        widget->setAccessibleName(widget->toolTip().isEmpty() ? name : widget->toolTip());
    }
}

void UiRegistry::registerAction(QAction *action, const QString &name)
{
    if (action != nullptr) {
        setObjectNameOnce(*action, name);
    }
}
