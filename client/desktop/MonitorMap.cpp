#include "client/desktop/MonitorMap.h"

#include <QCheckBox>
#include <QPainter>

#include <algorithm>

namespace {

/// So large is a monitor at least, so that its texts and boxes fit.
constexpr QSize smallest(168, 140);
/// The whole map, unless that makes a monitor too small.
constexpr QSize usual(640, 240);
constexpr int gap = 4;
constexpr int margin = 8;
constexpr int boxHeight = 28;
constexpr int numberWidth = 32;

QRect totalOf(const QList<QRect> &monitors)
{
    QRect total;
    for (const QRect &monitor : monitors) {
        total |= monitor;
    }
    return total;
}

/// Pixels of the map for one of the desktop.
double scaleFor(const QList<QRect> &monitors)
{
    const QSizeF total = totalOf(monitors).size();
    double scale = std::min(usual.width() / total.width(), usual.height() / total.height());
    for (const QRect &monitor : monitors) {
        scale = std::max({scale, static_cast<double>(smallest.width()) / monitor.width(),
            static_cast<double>(smallest.height()) / monitor.height()});
    }
    return scale;
}

} // namespace

MonitorMap::MonitorMap(QWidget *parent)
    : QWidget(parent)
{ }

void MonitorMap::setMonitors(const QList<QRect> &monitors, int primary)
{
    for (const Monitor &monitor : m_monitors) {
        delete monitor.viewers;
        delete monitor.studies;
    }
    m_monitors.clear();
    m_primary = primary;
    for (const QRect &monitor : monitors) {
        addMonitor(monitor);
    }
    updateGeometry();
    arrange();
    showPlacement();
}

void MonitorMap::addMonitor(const QRect &desktop)
{
    const int number = static_cast<int>(m_monitors.size());
    Monitor monitor{desktop, {}, nullptr, nullptr};
    monitor.viewers = addBox(tr("Viewers"), tr("Show viewers on monitor %1").arg(number + 1));
    monitor.studies
        = addBox(tr("Studies"), tr("Show the list of studies on monitor %1").arg(number + 1));
    connect(monitor.viewers, &QCheckBox::clicked, this,
        [this, number](bool on) { chooseViewers(number, on); });
    connect(monitor.studies, &QCheckBox::clicked, this,
        [this, number](bool on) { chooseStudies(number, on); });
    m_monitors.push_back(monitor);
}

QCheckBox *MonitorMap::addBox(const QString &text, const QString &toolTip)
{
    auto *const box = new QCheckBox(text, this);
    box->setToolTip(toolTip);
    box->setAccessibleName(toolTip);
    box->setVisible(true);
    return box;
}

void MonitorMap::setPlacement(const Placement &placement)
{
    m_placement = placement;
    showPlacement();
}

void MonitorMap::showPlacement()
{
    for (std::size_t i = 0; i < m_monitors.size(); ++i) {
        const int number = static_cast<int>(i);
        m_monitors[i].viewers->setChecked(m_placement.viewers.contains(number));
        m_monitors[i].studies->setChecked(m_placement.studies == number);
        // On the only monitor there is nothing to choose.
        m_monitors[i].viewers->setEnabled(m_monitors.size() > 1);
        m_monitors[i].studies->setEnabled(m_monitors.size() > 1);
    }
    update();
}

void MonitorMap::chooseViewers(int monitor, bool on)
{
    m_placement.viewers.removeAll(monitor);
    if (on) {
        m_placement.viewers.append(monitor);
        std::sort(m_placement.viewers.begin(), m_placement.viewers.end());
    }
    showPlacement();
    Q_EMIT changed();
}

void MonitorMap::chooseStudies(int monitor, bool on)
{
    m_placement.studies = on ? monitor : -1;
    showPlacement();
    Q_EMIT changed();
}

QList<QRect> MonitorMap::desktops() const
{
    QList<QRect> all;
    for (const Monitor &monitor : m_monitors) {
        all.append(monitor.desktop);
    }
    return all;
}

QSize MonitorMap::sizeHint() const
{
    const QList<QRect> all = desktops();
    return all.isEmpty() ? smallest : totalOf(all).size() * scaleFor(all);
}

void MonitorMap::arrange()
{
    const QList<QRect> all = desktops();
    const QRect total = totalOf(all);
    const double scale = scaleFor(all);
    const QSize hint = sizeHint();
    const QPoint first((width() - hint.width()) / 2, (height() - hint.height()) / 2);
    for (Monitor &monitor : m_monitors) {
        const QPointF corner = QPointF(monitor.desktop.topLeft() - total.topLeft()) * scale;
        const QSizeF size = QSizeF(monitor.desktop.size()) * scale;
        monitor.shown = QRectF(first + corner, size).toRect().adjusted(gap, gap, -gap, -gap);
        QRect box = monitor.shown.adjusted(margin, 0, -margin, -margin);
        box.setTop(box.bottom() + 1 - boxHeight);
        monitor.studies->setGeometry(box);
        monitor.viewers->setGeometry(box.translated(0, -boxHeight));
    }
    update();
}

void MonitorMap::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void MonitorMap::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t i = 0; i < m_monitors.size(); ++i) {
        paintMonitor(painter, static_cast<int>(i));
    }
}

void MonitorMap::paintMonitor(QPainter &painter, int number) const
{
    constexpr int radius = 4;
    const Monitor &monitor = m_monitors[static_cast<std::size_t>(number)];
    const bool isUsed = m_placement.viewers.contains(number) || m_placement.studies == number;
    painter.setPen(palette().color(isUsed ? QPalette::Highlight : QPalette::Mid));
    painter.setBrush(palette().brush(QPalette::Base));
    painter.drawRoundedRect(QRectF(monitor.shown).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);

    QRect line = monitor.shown.adjusted(margin, margin, -margin, 0);
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * 2);
    painter.setPen(palette().color(QPalette::Text));
    painter.setFont(large);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignTop, QString::number(number + 1));
    painter.setFont(font());
    line.setLeft(line.left() + numberWidth);
    const QString size = tr("%1 × %2").arg(monitor.desktop.width()).arg(monitor.desktop.height());
    painter.drawText(line, Qt::AlignLeft | Qt::AlignTop, size);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    line.setTop(line.top() + painter.fontMetrics().lineSpacing());
    if (number == m_primary) {
        painter.drawText(line, Qt::AlignLeft | Qt::AlignTop, tr("main monitor"));
    }
}
