#include "platform/toolkit/QxWildcard.h"

namespace {

/// Position of the bracket that closes the set opened at @p open, or -1. A bracket right at the
/// start of a set belongs to it.
qsizetype closingBracket(const QString &pattern, qsizetype open)
{
    qsizetype first = open + 1;
    if (first < pattern.size() && pattern.at(first) == QLatin1Char('!')) {
        ++first;
    }
    return pattern.indexOf(QLatin1Char(']'), first + 1);
}

/// The expression for a set, given what stands between its brackets.
QString setExpression(const QString &content)
{
    const bool negated = content.startsWith(QLatin1Char('!'));
    QString members = content.mid(negated ? 1 : 0);
    members.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('['), QLatin1String("\\["))
        .replace(QLatin1Char(']'), QLatin1String("\\]"))
        .replace(QLatin1Char('^'), QLatin1String("\\^"));
    return (negated ? QLatin1String("[^") : QLatin1String("[")) + members + QLatin1Char(']');
}

} // namespace

QRegularExpression QxWildcard::expression(const QString &pattern)
{
    QString result;
    QString literal;
    const auto add = [&](const QString &part) {
        result += QRegularExpression::escape(literal) + part;
        literal.clear();
    };
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        const qsizetype close = c == QLatin1Char('[') ? closingBracket(pattern, i) : -1;
        if (c == QLatin1Char('*')) {
            add(QStringLiteral(".*"));
        } else if (c == QLatin1Char('?')) {
            add(QStringLiteral("."));
        } else if (close > 0) {
            add(setExpression(pattern.mid(i + 1, close - i - 1)));
            i = close;
        } else {
            literal += c;
        }
    }
    add(QString());
    return QRegularExpression(QRegularExpression::anchoredPattern(result),
        QRegularExpression::DotMatchesEverythingOption
            | QRegularExpression::UseUnicodePropertiesOption);
}
