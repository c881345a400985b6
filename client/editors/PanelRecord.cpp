#include "client/editors/PanelRecord.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int version = 1;
constexpr int mostPages = 64;
constexpr int largestExtent = 1 << 15;
constexpr QLatin1String formatName("panels");
constexpr std::array<QLatin1String, ViewerPage::numPlaces> placeKeys{
    QLatin1String("Left"), QLatin1String("Right"), QLatin1String("Below")};

// Keys, written and read.
constexpr QLatin1String formatKey("format");
constexpr QLatin1String versionKey("version");
constexpr QLatin1String studiesKey("studies");
constexpr QLatin1String pagesKey("pages");
constexpr QLatin1String layoutKey("layout");
constexpr QLatin1String extentKey("extent");
constexpr QLatin1String collapsedKey("collapsed");

QJsonObject toObject(const PanelRecord::Region &region)
{
    return {{layoutKey, QString::fromUtf8(region.layout)}, {extentKey, region.extent.pixels},
        {collapsedKey, region.extent.isCollapsed}};
}

std::optional<PanelRecord::Region> regionOf(const QJsonObject &object)
{
    const QJsonValue layout = object.value(layoutKey);
    const QJsonValue collapsed = object.value(collapsedKey);
    const int extent = object.value(extentKey).toInt(-1);
    if (!layout.isString() || !collapsed.isBool() || extent < 1 || extent > largestExtent) {
        return std::nullopt;
    }
    return PanelRecord::Region{layout.toString().toUtf8(), {extent, collapsed.toBool()}};
}

std::optional<PanelRecord::Page> pageOf(const QJsonObject &object)
{
    PanelRecord::Page page;
    for (std::size_t i = 0; i < page.size(); ++i) {
        const auto region = regionOf(object.value(placeKeys[i]).toObject());
        if (!region) {
            return std::nullopt;
        }
        page[i] = *region;
    }
    return page;
}

} // namespace

QByteArray PanelRecord::toBytes() const
{
    QJsonArray pageArray;
    for (const Page &page : pages) {
        QJsonObject object;
        for (std::size_t i = 0; i < page.size(); ++i) {
            object.insert(placeKeys[i], toObject(page[i]));
        }
        pageArray.append(object);
    }
    const QJsonObject all{{formatKey, QString(formatName)}, {versionKey, version},
        {studiesKey, QString::fromUtf8(studies)}, {pagesKey, pageArray}};
    return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

std::optional<PanelRecord> PanelRecord::fromBytes(const QByteArray &bytes)
{
    const QJsonObject all = QJsonDocument::fromJson(bytes).object();
    const QJsonArray pages = all.value(pagesKey).toArray();
    if (all.value(formatKey).toString() != formatName || all.value(versionKey).toInt() != version
        || !all.value(studiesKey).isString() || pages.isEmpty() || pages.size() > mostPages) {
        return std::nullopt;
    }
    PanelRecord record;
    record.studies = all.value(studiesKey).toString().toUtf8();
    for (const auto &each : pages) {
        const auto page = pageOf(each.toObject());
        if (!page) {
            return std::nullopt;
        }
        record.pages.append(*page);
    }
    return record;
}
