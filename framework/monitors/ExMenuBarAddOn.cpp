#include "framework/monitors/ExMenuBarAddOn.h"

#include "framework/application/ExApplication.h"
#include "framework/application/ExUIRegistry.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

ExMenuBarAddOn::ExMenuBarAddOn(QWidget *parent)
    : QWidget(parent)
    , mWarning(new QLabel(this))
{
    setObjectName(QStringLiteral("Form"));
    auto *const row = new QHBoxLayout(this);
    row->setObjectName(QStringLiteral("hboxLayout"));
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    mWarning->setObjectName(QStringLiteral("mWarning"));
    mWarning->setTextFormat(Qt::RichText);
    mWarning->hide();
    row->addWidget(mWarning);
    mMinimize = addButton("mMinimize", tr("Minimize"), tr("Puts the window in the task bar."));
    mNormal = addButton("mNormal", tr("Restore"), tr("Gives the window its frame."));
    mClose = addButton("mClose", tr("Close"), tr("Ends the session."));
    if (!ExApplication::hasInstance()) {
        return;
    }
    ExApplication &application = ExApplication::instance();
    if (ExUIRegistry *const registry = application.uiRegistry()) {
        registry->registerWidget(mMinimize, QStringLiteral("Minimize"));
    }
    application.menuBarAddOnCreated(this);
}

void ExMenuBarAddOn::setWarning(const QString &text)
{
    m_warning = text;
    mWarning->setText(
        QLatin1String("<font color=orange>") + text.toHtmlEscaped() + QLatin1String("</font>"));
    mWarning->setVisible(!text.isEmpty());
}

QPushButton *ExMenuBarAddOn::addButton(
    const char *name, const QString &text, const QString &toolTip)
{
    auto *const button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(toolTip);
    button->setAccessibleName(text);
    button->setFlat(true);
    layout()->addWidget(button);
    return button;
}
