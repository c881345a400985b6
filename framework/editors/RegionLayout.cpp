#include "framework/editors/RegionLayout.h"

#include "platform/properties/KxPropertyTrait.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <cmath>

namespace {

constexpr QLatin1String formatName("editor region");

// Keys, written and read.
constexpr QLatin1String formatKey("format");
constexpr QLatin1String versionKey("version");
constexpr QLatin1String subRegionsKey("subRegions");
constexpr QLatin1String editorsKey("editors");
constexpr QLatin1String currentKey("current");
constexpr QLatin1String sizeKey("size");
constexpr QLatin1String closedKey("closed");
constexpr QLatin1String floatingKey("floating");
constexpr QLatin1String editorKey("editor");
constexpr QLatin1String subRegionKey("subRegion");
constexpr QLatin1String geometryKey("geometry");
constexpr QLatin1String relativeKey("relative");

QJsonArray toArray(const McBox2f &box)
{
    QJsonArray array;
    for (const float value : {box.xMin(), box.yMin(), box.xMax(), box.yMax()}) {
        array.append(static_cast<double>(value));
    }
    return array;
}

/// Reads values out of the record, and remembers whether all of them were right.
class Reader
{
public:
    [[nodiscard]] bool isGood() const { return m_good; }

    /// An absent value of any kind is a wrong one.
    QJsonArray array(const QJsonObject &object, QLatin1String key)
    {
        const QJsonValue value = object.value(key);
        expect(value.isArray());
        return value.toArray();
    }

    QJsonObject object(const QJsonValue &value)
    {
        expect(value.isObject());
        return value.toObject();
    }

    QString text(const QJsonValue &value)
    {
        expect(value.isString());
        return value.toString();
    }

    /// Name of an editor, each of which has one place.
    QString editor(const QJsonValue &value)
    {
        QString name = text(value);
        expect(!name.isEmpty() && !m_editors.contains(name));
        m_editors.insert(name);
        return name;
    }

    int number(const QJsonValue &value, int least, int most)
    {
        const int none = least - 1;
        const int result = value.toInt(none);
        expect(result >= least && result <= most);
        return result;
    }

    QRect rect(const QJsonValue &value)
    {
        constexpr int farthest = 1 << 20;
        constexpr QRect anywhere(QPoint(-farthest, -farthest), QPoint(farthest, farthest));
        const QRect result = KxPropertyTrait<QRect>::fromString(text(value)).value_or(QRect());
        expect(result.isValid() && anywhere.contains(result));
        return result;
    }

    McBox2f box(const QJsonArray &array)
    {
        constexpr int numberOfParts = 4;
        constexpr double farthest = 100;
        expect(array.size() == numberOfParts);
        for (const auto &value : array) {
            expect(value.isDouble() && std::abs(value.toDouble()) <= farthest);
        }
        const auto part
            = [&array](qsizetype i) { return static_cast<float>(array.at(i).toDouble()); };
        return {part(0), part(1), part(2), part(3)};
    }

    void expect(bool right) { m_good = m_good && right; }

private:
    bool m_good = true;
    QSet<QString> m_editors;
};

RegionLayout::SubRegion readSubRegion(Reader &reader, const QJsonObject &object)
{
    constexpr int largest = 1 << 20;
    RegionLayout::SubRegion result;
    for (const auto &name : reader.array(object, editorsKey)) {
        result.editors.append(reader.editor(name));
    }
    result.current = reader.text(object.value(currentKey));
    result.size = reader.number(object.value(sizeKey), -1, largest);
    return result;
}

} // namespace

QByteArray RegionLayout::toBytes() const
{
    QJsonArray subRegionArray;
    for (const SubRegion &subRegion : subRegions) {
        subRegionArray.append(
            QJsonObject{{editorsKey, QJsonArray::fromStringList(subRegion.editors)},
                {currentKey, subRegion.current}, {sizeKey, subRegion.size}});
    }
    QJsonArray closedArray;
    for (const Closed &place : closed) {
        closedArray.append(QJsonObject{{editorKey, place.editor}, {subRegionKey, place.subRegion}});
    }
    QJsonArray floatingArray;
    for (const Floating &place : floating) {
        floatingArray.append(QJsonObject{{editorKey, place.editor}, {subRegionKey, place.subRegion},
            {geometryKey, KxPropertyTrait<QRect>::toString(place.geometry)},
            {relativeKey, toArray(place.relative)}});
    }
    const QJsonObject all{{formatKey, QString(formatName)}, {versionKey, version},
        {subRegionsKey, subRegionArray}, {closedKey, closedArray}, {floatingKey, floatingArray}};
    return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

std::optional<RegionLayout> RegionLayout::fromBytes(const QByteArray &bytes)
{
    const QJsonObject all = QJsonDocument::fromJson(bytes).object();
    if (all.value(formatKey).toString() != formatName || all.value(versionKey).toInt() != version) {
        return std::nullopt;
    }
    Reader reader;
    RegionLayout result;
    for (const auto &value : reader.array(all, subRegionsKey)) {
        result.subRegions.append(readSubRegion(reader, reader.object(value)));
    }
    const auto count = static_cast<int>(result.subRegions.size());
    reader.expect(count >= 1 && count <= mostSubRegions);
    const auto place = [&reader, count](const QJsonObject &object) {
        return reader.number(object.value(subRegionKey), 0, count - 1);
    };
    for (const auto &value : reader.array(all, closedKey)) {
        const QJsonObject object = reader.object(value);
        result.closed.append({reader.editor(object.value(editorKey)), place(object)});
    }
    for (const auto &value : reader.array(all, floatingKey)) {
        const QJsonObject object = reader.object(value);
        result.floating.append({reader.editor(object.value(editorKey)), place(object),
            reader.rect(object.value(geometryKey)), reader.box(reader.array(object, relativeKey))});
    }
    return reader.isGood() ? std::optional(result) : std::nullopt;
}
