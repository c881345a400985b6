#include "client/application/WorkstationDecoration.h"

#include "client/application/SvgIconEngine.h"
#include "framework/tools/ToolModule.h"

#include <QCoreApplication>
#include <QKeySequence>

namespace {

QString translated(const char *key, const char *ToolDecoration::*text)
{
    const ToolDecoration *const decoration = ToolModule::decoration(key);
    return decoration == nullptr || decoration->*text == nullptr
        ? QString()
        : QCoreApplication::translate("Tools", decoration->*text);
}

} // namespace

QStringList WorkstationDecoration::keys() const
{
    QStringList keys;
    for (const auto &[key, decoration] : ToolModule::decorations()) {
        keys += QString::fromStdString(key);
    }
    return keys;
}

QString WorkstationDecoration::category(const char *key) const
{
    return translated(key, &ToolDecoration::category);
}

QString WorkstationDecoration::description(const char *key) const
{
    return translated(key, &ToolDecoration::description);
}

bool WorkstationDecoration::isKnown(const char *key) const
{
    return ToolModule::decoration(key) != nullptr;
}

QString WorkstationDecoration::shortCut(const char *key) const
{
    const ToolDecoration *const decoration = ToolModule::decoration(key);
    return decoration == nullptr ? QString() : QString::fromLatin1(decoration->shortCut);
}

QString WorkstationDecoration::iconName(const char *key) const
{
    const ToolDecoration *const decoration = ToolModule::decoration(key);
    return decoration == nullptr || decoration->icon == nullptr
        ? QString()
        : SvgIconEngine::fileName(QString::fromLatin1(decoration->icon));
}

QIcon WorkstationDecoration::icon(const char *key) const
{
    return iconName(key).isEmpty()
        ? QIcon()
        : QIcon(new SvgIconEngine(QString::fromLatin1(ToolModule::decoration(key)->icon)));
}

QString WorkstationDecoration::text(const char *key, bool on) const
{
    const QString active = on ? translated(key, &ToolDecoration::textWhenActive) : QString();
    return active.isEmpty() ? translated(key, &ToolDecoration::text) : active;
}

QString WorkstationDecoration::toolTip(const char *key) const
{
    const QString tip = translated(key, &ToolDecoration::toolTip);
    const QKeySequence keys(shortCut(key));
    return keys.isEmpty()
        ? tip
        : tip % QLatin1String(" (") % keys.toString(QKeySequence::NativeText) % QLatin1Char(')');
}
