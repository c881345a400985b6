#include "platform/properties/KxPropertyTrait.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

template <typename Number>
QString shortest(Number value)
{
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return QString::fromLatin1(buffer.data(), result.ptr - buffer.data());
}

/// Not the toolkit's conversion: that refuses the shortest text of the largest float.
template <typename Number>
std::optional<Number> finiteNumber(const QString &text)
{
    const std::string digits = text.trimmed().toStdString();
    Number value = 0;
    const char *const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value);
    const bool isNumber = result.ec == std::errc() && result.ptr == end && std::isfinite(value);
    return isNumber ? std::optional<Number>(value) : std::nullopt;
}

std::optional<QList<int>> integers(const QString &text, QChar separator)
{
    QList<int> values;
    const QStringList parts = text.split(separator);
    for (const QString &part : parts) {
        bool ok = false;
        values.append(part.trimmed().toInt(&ok));
        if (!ok) {
            return std::nullopt;
        }
    }
    return values;
}

/// Whether the far edge of a rectangle can be told in an int: a rectangle keeps its edges, not its
/// size.
bool edgeFits(int start, int extent)
{
    const qint64 edge = qint64{start} + extent - 1;
    return edge >= std::numeric_limits<int>::min() && edge <= std::numeric_limits<int>::max();
}

QStringList itemsBetweenCommas(const QString &text)
{
    QStringList items;
    if (text.trimmed().isEmpty()) {
        return items;
    }
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        items.append(part.trimmed());
    }
    return items;
}

} // namespace

QString KxPropertyTrait<bool>::toString(const bool &value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

std::optional<bool> KxPropertyTrait<bool>::fromString(const QString &text)
{
    const QString word = text.trimmed();
    if (word == QLatin1String("true") || word == QLatin1String("1")) {
        return true;
    }
    if (word == QLatin1String("false") || word == QLatin1String("0")) {
        return false;
    }
    return std::nullopt;
}

QString KxPropertyTrait<int>::toString(const int &value)
{
    return QString::number(value);
}

std::optional<int> KxPropertyTrait<int>::fromString(const QString &text)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

QString KxPropertyTrait<float>::toString(const float &value)
{
    return shortest(value);
}

std::optional<float> KxPropertyTrait<float>::fromString(const QString &text)
{
    return finiteNumber<float>(text);
}

QString KxPropertyTrait<double>::toString(const double &value)
{
    return shortest(value);
}

std::optional<double> KxPropertyTrait<double>::fromString(const QString &text)
{
    return finiteNumber<double>(text);
}

QString KxPropertyTrait<QString>::toString(const QString &value)
{
    return value;
}

std::optional<QString> KxPropertyTrait<QString>::fromString(const QString &text)
{
    return text;
}

QString KxPropertyTrait<QStringList>::toString(const QStringList &value)
{
    const QJsonDocument document(QJsonArray::fromStringList(value));
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

std::optional<QStringList> KxPropertyTrait<QStringList>::fromString(const QString &text)
{
    if (!text.startsWith(QLatin1Char('['))) {
        return itemsBetweenCommas(text);
    }
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isArray()) {
        return std::nullopt;
    }
    QStringList values;
    const QJsonArray items = document.array();
    for (const auto &item : items) {
        if (!item.isString()) {
            return std::nullopt;
        }
        values.append(item.toString());
    }
    return values;
}

QString KxPropertyTrait<QList<int>>::toString(const QList<int> &value)
{
    QStringList texts;
    for (const int number : value) {
        texts.append(QString::number(number));
    }
    return texts.join(QLatin1Char(','));
}

std::optional<QList<int>> KxPropertyTrait<QList<int>>::fromString(const QString &text)
{
    return text.trimmed().isEmpty() ? QList<int>() : integers(text, QLatin1Char(','));
}

QString KxPropertyTrait<QRect>::toString(const QRect &value)
{
    return QStringLiteral("%1|%2|%3|%4")
        .arg(value.x())
        .arg(value.y())
        .arg(value.width())
        .arg(value.height());
}

std::optional<QRect> KxPropertyTrait<QRect>::fromString(const QString &text)
{
    const std::optional<QList<int>> numbers = integers(text, QLatin1Char('|'));
    if (!numbers || numbers->size() != 4 || !edgeFits(numbers->at(0), numbers->at(2))
        || !edgeFits(numbers->at(1), numbers->at(3))) {
        return std::nullopt;
    }
    return QRect(numbers->at(0), numbers->at(1), numbers->at(2), numbers->at(3));
}
