// The set of monitors and what depends on it.
#include "framework/monitors/ExMonitorManager.h"

#include "framework/monitors/ExMonitorManagerPrivate.h"
#include "framework/monitors/MonitorMath.h"
#include "framework/monitors/MonitorSettings.h"
#include "platform/render/KxEngine.h"

#include <QApplication>

#include <algorithm>
#include <array>

namespace {

/// The settings of one size, for each category.
using Keys = std::array<const char *, 3>;
using M = ExMonitorManager;

constexpr Keys applicationFontKeys{
    M::PROPERTY_FONT_SIZE_SMALL, M::PROPERTY_FONT_SIZE_MEDIUM, M::PROPERTY_FONT_SIZE_LARGE};
constexpr Keys thumbnailKeys{M::PROPERTY_THUMBNAIL_SIZE_SMALL, M::PROPERTY_THUMBNAIL_SIZE_MEDIUM,
    M::PROPERTY_THUMBNAIL_SIZE_LARGE};
constexpr Keys thumbnailFontKeys{M::PROPERTY_THUMBNAIL_FONT_SIZE_SMALL,
    M::PROPERTY_THUMBNAIL_FONT_SIZE_MEDIUM, M::PROPERTY_THUMBNAIL_FONT_SIZE_LARGE};

int sizeFor(const Keys &keys, M::MonitorCategory category)
{
    return MonitorSettings::size(keys.at(static_cast<std::size_t>(category)));
}

struct HorizontalSpan
{
    bool spans = false;
    int width = 0;
    int height = 0;
};

HorizontalSpan spanOf(const QList<QRect> &monitors)
{
    const auto found = std::find_if(monitors.begin(), monitors.end(), [](const QRect &monitor) {
        return qint64{monitor.width()} * 4 >= qint64{monitor.height()} * 10;
    });
    return found == monitors.end() ? HorizontalSpan()
                                   : HorizontalSpan{true, found->width(), found->height()};
}

} // namespace

ExMonitorManager &ExMonitorManager::instance()
{
    static ExMonitorManager manager;
    return manager;
}

ExMonitorManager::ExMonitorManager()
    : d(std::make_unique<ExMonitorManagerPrivate>(*this))
{ }

ExMonitorManager::~ExMonitorManager() = default;

const QList<QRect> &ExMonitorManager::monitors() const
{
    return d->set.monitors;
}

int ExMonitorManager::numMonitors() const
{
    return static_cast<int>(d->set.monitors.size());
}

QRect ExMonitorManager::monitorRect(unsigned int monitor) const
{
    return d->set.rect(static_cast<qsizetype>(monitor));
}

int ExMonitorManager::primaryMonitor() const
{
    return d->set.primary;
}

QRect ExMonitorManager::totalRect() const
{
    return d->set.total;
}

const QList<QList<int>> &ExMonitorManager::physicalMonitors() const
{
    return d->set.physical;
}

void ExMonitorManager::readMonitorConfiguration()
{
    d->watch.start();
    d->set = MonitorSet::read();
}

bool ExMonitorManager::hasHorizontalSpan(int &width, int &height) const
{
    // Kept although the monitors may change later: what the client laid out by the first answer
    // must go on being true.
    static const HorizontalSpan span = spanOf(d->set.monitors);
    width = span.width;
    height = span.height;
    return span.spans;
}

QList<int> ExMonitorManager::contiguousHorizontalMonitors(const QList<QRect> &rects) const
{
    return MonitorMath::longestRow(rects);
}

ExMonitorManager::MonitorCategory ExMonitorManager::monitorCategory(ExMonitorWidget *widget) const
{
    constexpr float megapixel = 1.0F / 1048576.0F;
    const QList<ExMonitorWidget::Content *> shown = contents(widget);
    if (shown.isEmpty()) {
        return CategorySmall;
    }
    const QList<int> occupied = configuration(shown.first()).monitors;
    if (occupied.isEmpty()) {
        return CategorySmall;
    }
    const float area
        = static_cast<float>(MonitorMath::area(d->set.rect(occupied.first()))) * megapixel;
    if (MonitorSettings::threshold(PROPERTY_THRESHOLD_SMALL) > area) {
        return CategorySmall;
    }
    return MonitorSettings::threshold(PROPERTY_THRESHOLD_MEDIUM) > area ? CategoryMedium
                                                                        : CategoryLarge;
}

int ExMonitorManager::imageSeriesFontSize(QWidget *widget) const
{
    ExMonitorWidget *const window = ExMonitorWidget::parentWidget(widget);
    const auto points = static_cast<float>(sizeFor(thumbnailFontKeys, monitorCategory(window)));
    return static_cast<int>(pointSizeNormalizeTo96dpi(window, points));
}

int ExMonitorManager::imageSeriesThumbnailSize(QWidget *widget) const
{
    return sizeFor(thumbnailKeys, monitorCategory(ExMonitorWidget::parentWidget(widget)));
}

float ExMonitorManager::pointSizeNormalizeTo96dpi(const QWidget *widget, float points) const
{
    if (kxIsMainThread() && widget != nullptr && m_dpi < 0) {
        m_dpi = static_cast<float>(widget->logicalDpiX());
    }
    return 96.0F / m_dpi * points;
}

void ExMonitorManager::updateFonts()
{
    for (ExMonitorWidget *const widget : monitorWidgets()) {
        const auto points
            = static_cast<float>(sizeFor(applicationFontKeys, monitorCategory(widget)));
        const float normalized = pointSizeNormalizeTo96dpi(widget, points);
        // Settings may hold anything; there is no font of such a size.
        if (normalized > 0) {
            QFont font(QApplication::font().family());
            font.setPointSizeF(static_cast<double>(normalized));
            widget->changeFont(font);
        }
    }
}
