// The types nested in ExMonitorWidget: contents, their records, tool bars.
#include "framework/monitors/ExMonitorWidget.h"

#include "platform/properties/KxPropertyTrait.h"

#include <QStringList>

namespace {

template <typename T>
bool read(const QString &text, T &value)
{
    std::optional<T> found = KxPropertyTrait<T>::fromString(text);
    if (found) {
        value = *found;
    }
    return found.has_value();
}

} // namespace

QString ExMonitorWidget::Configuration::toString() const
{
    return QStringList{KxPropertyTrait<QList<int>>::toString(monitors),
        KxPropertyTrait<QRect>::toString(previousGeometry),
        KxPropertyTrait<QRect>::toString(normalGeometry),
        KxPropertyTrait<bool>::toString(fullScreen), KxPropertyTrait<bool>::toString(ownWindow)}
        .join(QLatin1Char(';'));
}

std::optional<ExMonitorWidget::Configuration> ExMonitorWidget::Configuration::fromString(
    const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    Configuration record;
    const bool isRecord = parts.size() == 5 && read(parts.at(0), record.monitors)
        && read(parts.at(1), record.previousGeometry) && read(parts.at(2), record.normalGeometry)
        && read(parts.at(3), record.fullScreen) && read(parts.at(4), record.ownWindow);
    return isRecord ? std::optional(record) : std::nullopt;
}

ExMonitorWidget::Content::~Content() = default;

QWidget *ExMonitorWidget::Content::widgetForMonitor(
    const Configuration & /*configuration*/, int /*monitor*/)
{
    return nullptr;
}

void ExMonitorWidget::Content::configurationChanged(const Configuration & /*configuration*/) { }

ExMonitorWidget::SingleMonitorContent::SingleMonitorContent(
    const QString &identifier, QWidget *widget)
    : m_identifier(identifier)
    , m_widget(widget)
{ }

QWidget *ExMonitorWidget::SingleMonitorContent::widgetForMonitor(
    const Configuration & /*configuration*/, int /*monitor*/)
{
    return m_widget;
}

ExMonitorWidget::ToolBar::ToolBar(QToolBar *toolBar, bool visible, Qt::ToolBarArea area)
    : m_toolBar(toolBar)
    , m_visible(visible)
    , m_area(area)
    , m_isToolBar(true)
{ }

ExMonitorWidget::ToolBar::ToolBar(Qt::ToolBarArea area)
    : m_area(area)
    , m_isToolBar(false)
{ }

ExMonitorWidget::ToolBarBreak::ToolBarBreak(Qt::ToolBarArea area)
    : ToolBar(area)
{ }
