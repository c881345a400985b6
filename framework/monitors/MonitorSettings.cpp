#include "framework/monitors/MonitorSettings.h"

#include "framework/monitors/ExMonitorManager.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxTranslationProperty.h"

namespace {

struct Size
{
    const char *key;
    const char *label;
    int value;
};

struct Threshold
{
    const char *key;
    const char *label;
    float value;
};

using M = ExMonitorManager;

constexpr Size sizes[]{
    {M::PROPERTY_FONT_SIZE_SMALL,
        QT_TRANSLATE_NOOP("Property", "Application Font Size (Small Resolution)"), 8},
    {M::PROPERTY_FONT_SIZE_MEDIUM,
        QT_TRANSLATE_NOOP("Property", "Application Font Size (Medium Resolution)"), 10},
    {M::PROPERTY_FONT_SIZE_LARGE,
        QT_TRANSLATE_NOOP("Property", "Application Font Size (Large Resolution)"), 12},
    {M::PROPERTY_THUMBNAIL_SIZE_SMALL,
        QT_TRANSLATE_NOOP("Property", "Image Thumbnail Size (Small Resolution)"), 80},
    {M::PROPERTY_THUMBNAIL_SIZE_MEDIUM,
        QT_TRANSLATE_NOOP("Property", "Image Thumbnail Size (Medium Resolution)"), 120},
    {M::PROPERTY_THUMBNAIL_SIZE_LARGE,
        QT_TRANSLATE_NOOP("Property", "Image Thumbnail Size (Large Resolution)"), 160},
    {M::PROPERTY_THUMBNAIL_FONT_SIZE_SMALL,
        QT_TRANSLATE_NOOP("Property", "Font Size on Image Thumbnail (Small Resolution)"), 8},
    {M::PROPERTY_THUMBNAIL_FONT_SIZE_MEDIUM,
        QT_TRANSLATE_NOOP("Property", "Font Size on Image Thumbnail (Medium Resolution)"), 10},
    {M::PROPERTY_THUMBNAIL_FONT_SIZE_LARGE,
        QT_TRANSLATE_NOOP("Property", "Font Size on Image Thumbnail (Large Resolution)"), 12},
};

constexpr Threshold thresholds[]{
    {M::PROPERTY_THRESHOLD_SMALL,
        QT_TRANSLATE_NOOP("Property", "Threshold between Small and Medium Resolution (Megapixels)"),
        2.3F},
    {M::PROPERTY_THRESHOLD_MEDIUM,
        QT_TRANSLATE_NOOP("Property", "Threshold between Medium and Large Resolution (Megapixels)"),
        3.9F},
};

template <typename T>
void registerOnce(KxPropertyPool &pool, const char *key, const char *label, const T &value,
    KxPropertySerializer &serializer)
{
    KxTranslationProperty::translate(key, label);
    if (pool.variant(key) == nullptr) {
        pool.property<T>(key, value, serializer);
    }
}

void registerSettings(KxPropertyPool &pool)
{
    KxTranslationProperty::translate("UI", QT_TRANSLATE_NOOP("Property", "User Interface"));
    KxTranslationProperty::translate(
        "UI.MonitorDependent", QT_TRANSLATE_NOOP("Property", "Monitor Dependent Settings"));
    for (const Size &size : sizes) {
        registerOnce(pool, size.key, size.label, size.value, pool.defaultSerializer());
    }
    for (const Threshold &threshold : thresholds) {
        registerOnce(
            pool, threshold.key, threshold.label, threshold.value, pool.defaultSerializer());
    }
    registerOnce(pool, M::PROPERTY_GRAYSCALE_VIEW,
        QT_TRANSLATE_NOOP("Property", "View Screen on Grayscale Monitor"), false,
        pool.registrySerializer());
}

const bool registered = KxPropertyPool::addRegisterProperties(registerSettings);

QString geometryKey(const QString &objectName)
{
    return QLatin1String("UI.DialogPositionSize.") + objectName;
}

} // namespace

int MonitorSettings::size(const char *key)
{
    const auto *const property = KxPropertyPool::instance().find<int>(key);
    return property == nullptr ? 0 : property->value();
}

float MonitorSettings::threshold(const char *key)
{
    const auto *const property = KxPropertyPool::instance().find<float>(key);
    return property == nullptr ? 0 : property->value();
}

KxProperty<QList<int>> &MonitorSettings::splitConfig()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    return pool.property<QList<int>>("UI.SplitMonitorConfig", {}, pool.registrySerializer());
}

KxProperty<QRect> &MonitorSettings::geometry(const QString &objectName)
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    return pool.property<QRect>(geometryKey(objectName), {}, pool.registrySerializer());
}

QRect MonitorSettings::storedGeometry(const QString &objectName)
{
    const KxPropertySerializer &store = KxPropertyPool::instance().registrySerializer();
    return KxProperty<QRect>::stored(geometryKey(objectName), store).value_or(QRect());
}
