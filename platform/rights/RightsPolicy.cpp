#include "platform/rights/RightsPolicy.h"

#include "platform/toolkit/QxWildcard.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace {

/// Each reader takes one member's value into the policy and returns what is wrong with it; empty
/// when nothing is.
using Reader = QString (*)(const QJsonValue &, RightsPolicy &);

QString readPatterns(const QJsonValue &value, QList<QRegularExpression> &patterns)
{
    if (!value.isArray()) {
        return QStringLiteral("is not a list");
    }
    const QJsonArray items = value.toArray();
    for (const auto &item : items) {
        const QRegularExpression pattern = QxWildcard::expression(item.toString());
        if (!item.isString() || !pattern.isValid()) {
            return QStringLiteral("holds something that is not a pattern");
        }
        patterns.append(pattern);
    }
    return {};
}

QString readDeniedTools(const QJsonValue &value, RightsPolicy &policy)
{
    return readPatterns(value, policy.deniedTools);
}

QString readDeniedEditors(const QJsonValue &value, RightsPolicy &policy)
{
    return readPatterns(value, policy.deniedEditors);
}

QString readGrantedFunctions(const QJsonValue &value, RightsPolicy &policy)
{
    if (!value.isArray()) {
        return QStringLiteral("is not a list");
    }
    constexpr int none = std::numeric_limits<int>::min();
    const QJsonArray items = value.toArray();
    for (const auto &item : items) {
        // Texts and fractions give the default.
        const int code = item.toInt(none);
        if (code == none) {
            return QStringLiteral("holds something that is not a function code");
        }
        policy.grantedFunctions.insert(code);
    }
    return {};
}

/// Replaces each new identifier by the one at the end of its chain of renamings. False when a chain
/// has no end.
bool resolveChains(QHash<QString, QString> &renamed)
{
    const QHash<QString, QString> steps = renamed;
    for (QString &target : renamed) {
        qsizetype count = 0;
        while (steps.contains(target)) {
            if (++count > steps.size()) {
                return false;
            }
            target = steps.value(target);
        }
    }
    return true;
}

QString readRenamedTools(const QJsonValue &value, RightsPolicy &policy)
{
    if (!value.isObject()) {
        return QStringLiteral("is not an object");
    }
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QString target = it.value().toString();
        if (target.isEmpty()) {
            return QStringLiteral("holds a new identifier that is not a text");
        }
        policy.renamedTools.insert(it.key(), target);
    }
    return resolveChains(policy.renamedTools) ? QString() : QStringLiteral("renames in a circle");
}

QString skip(const QJsonValue &, RightsPolicy &)
{
    return {};
}

const QHash<QString, Reader> &readers()
{
    static const QHash<QString, Reader> table{
        {QStringLiteral("comment"), &skip},
        {QStringLiteral("deniedTools"), &readDeniedTools},
        {QStringLiteral("deniedEditors"), &readDeniedEditors},
        {QStringLiteral("grantedFunctions"), &readGrantedFunctions},
        {QStringLiteral("renamedTools"), &readRenamedTools},
    };
    return table;
}

QString readDocument(const QByteArray &content, RightsPolicy &policy)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (!document.isObject()) {
        return error.error == QJsonParseError::NoError ? QStringLiteral("it is not an object")
                                                       : error.errorString();
    }
    const QJsonObject object = document.object();
    for (auto it = object.begin(); it != object.end(); ++it) {
        // A misspelt member would otherwise quietly allow what it was to deny.
        const Reader reader = readers().value(it.key());
        const QString problem
            = reader ? reader(it.value(), policy) : QStringLiteral("is not known");
        if (!problem.isEmpty()) {
            return QLatin1Char('"') + it.key() + QLatin1String("\" ") + problem;
        }
    }
    return {};
}

RightsPolicy denyingEverything()
{
    const QRegularExpression all = QxWildcard::expression(QStringLiteral("*"));
    RightsPolicy policy;
    policy.deniedTools = {all};
    policy.deniedEditors = {all};
    return policy;
}

} // namespace

RightsPolicy RightsPolicy::read(const QString &fileName, QString &problem)
{
    RightsPolicy policy;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = file.errorString();
    } else {
        problem = readDocument(file.readAll(), policy);
    }
    return problem.isEmpty() ? policy : denyingEverything();
}
