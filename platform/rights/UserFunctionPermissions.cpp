#include "platform/rights/UserFunctionPermissions.h"

#include "platform/properties/KxSiteSettings.h"
#include "platform/rights/RightsPolicy.h"
#include "platform/util/McLogFile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Zel {

class UserFunctionPermissions::Private
{
public:
    /// Passes on whether something is allowed, and notes a denial once.
    bool answer(bool allowed, const char *kind, const QString &name, bool logDenial)
    {
        if (allowed || !logDenial) {
            return allowed;
        }
        const QString entry = QLatin1String(kind) + QLatin1Char(' ') + name;
        if (!logged.contains(entry)) {
            logged.insert(entry);
            McLogFile::infof("The user has no right to use the %s", qUtf8Printable(entry));
        }
        return false;
    }

    RightsPolicy policy;
    QSet<QString> logged;
};

namespace {

bool matchesAny(const QList<QRegularExpression> &patterns, const QString &key)
{
    return std::any_of(patterns.begin(), patterns.end(),
        [&](const QRegularExpression &pattern) { return pattern.match(key).hasMatch(); });
}

} // namespace

UserFunctionPermissions &UserFunctionPermissions::instance()
{
    // Never destroyed: static destructors may still look up tools.
    static auto *const permissions = new UserFunctionPermissions(policyFileName());
    return *permissions;
}

UserFunctionPermissions::UserFunctionPermissions(const QString &fileName)
    : d(std::make_unique<Private>())
{
    load(fileName);
}

UserFunctionPermissions::~UserFunctionPermissions() = default;

QString UserFunctionPermissions::policyFileName()
{
    QString named = qEnvironmentVariable("MOVARA_POLICY_FILE");
    if (!named.isEmpty()) {
        return named;
    }
    const KxSiteSettings &site = KxSiteSettings::instance();
    if (site.failed()) {
        // Below a file nothing can be opened, whatever it holds.
        return site.fileName() + QLatin1String("/Rights.PolicyFile");
    }
    const QString name = site.value(QStringLiteral("Rights.PolicyFile")).value_or(QString());
    return name.isEmpty() ? name : QFileInfo(site.fileName()).dir().filePath(name);
}

void UserFunctionPermissions::load(const QString &fileName)
{
    QString problem;
    d->policy = fileName.isEmpty() ? RightsPolicy() : RightsPolicy::read(fileName, problem);
    d->logged.clear();
    if (!problem.isEmpty()) {
        McLogFile::warnf(
            "WARNING - the policy %s cannot be used, every tool and editor is denied: %s",
            qUtf8Printable(fileName), qUtf8Printable(problem));
    }
}

bool UserFunctionPermissions::haveToolPermission(const std::string &key, bool logDenial) const
{
    const QString name = QString::fromStdString(key);
    return d->answer(!matchesAny(d->policy.deniedTools, name), "tool", name, logDenial);
}

bool UserFunctionPermissions::haveEditorPermission(const std::string &name, bool logDenial) const
{
    const QString text = QString::fromStdString(name);
    return d->answer(!matchesAny(d->policy.deniedEditors, text), "editor", text, logDenial);
}

bool UserFunctionPermissions::havePermission(int code, bool logDenial) const
{
    return d->answer(
        d->policy.grantedFunctions.contains(code), "function", QString::number(code), logDenial);
}

void UserFunctionPermissions::renameTool(std::string &key) const
{
    const auto found = d->policy.renamedTools.constFind(QString::fromStdString(key));
    if (found != d->policy.renamedTools.constEnd()) {
        key = found->toStdString();
    }
}

} // namespace Zel
