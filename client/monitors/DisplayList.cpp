#include "client/monitors/DisplayList.h"

#include "client/monitors/DisplaySplit.h"
#include "platform/display/ExDisplayConfig.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>

#include <array>

namespace {

ExMonitorManager &manager()
{
    return ExMonitorManager::instance();
}

QString sizeText(const QRect &rect)
{
    return QStringLiteral("%1 × %2").arg(rect.width()).arg(rect.height());
}

} // namespace

DisplayList::DisplayList(QWidget *parent)
    : QWidget(parent)
    , m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(24);
    m_grid->setColumnStretch(1, 1);
    refresh();
}

QString DisplayList::nameOf(ExMonitorManager::MonitorCategory category)
{
    const std::array names{tr("Small"), tr("Medium"), tr("Large")};
    return names.at(static_cast<std::size_t>(category));
}

void DisplayList::refresh()
{
    std::vector<ExDisplayInfo> displays;
    ExDisplayConfig::getDisplayInfo(displays);
    const QList<QList<int>> &physical = manager().physicalMonitors();
    QStringList texts;
    for (const ExDisplayInfo &display : displays) {
        const QString size = sizeText({display.x, display.y, display.width, display.height});
        texts.append(display.primary ? tr("%1, %2, primary").arg(display.name, size)
                                     : tr("%1, %2").arg(display.name, size));
    }
    const bool areDisplays = static_cast<std::size_t>(physical.size()) == displays.size();
    if (!areDisplays) {
        texts.clear();
        for (const QRect &monitor : manager().monitors()) {
            texts.append(
                tr("%1 at %2, %3").arg(sizeText(monitor)).arg(monitor.x()).arg(monitor.y()));
        }
    }
    if (texts != m_texts || m_rows.empty()) {
        clear();
        m_texts = texts;
        for (int i = 0; i < texts.size(); ++i) {
            addRow(texts.at(i), areDisplays);
        }
        if (!areDisplays) {
            addNote(tr("These monitors are named by the environment variable MOVARA_MONITORS; they "
                       "are not split."));
        }
    }
    const QList<int> split = DisplaySplit::current();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const auto number = static_cast<int>(i);
        m_rows[i].monitors = areDisplays ? physical.at(number) : QList<int>{number};
        m_rows[i].split->setChecked(split.value(number) != 0);
    }
    showCategories();
}

void DisplayList::setThresholds(float small, float medium)
{
    m_small = small;
    m_medium = medium;
    showCategories();
}

void DisplayList::clear()
{
    m_rows.clear();
    while (QLayoutItem *const item = m_grid->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
}

void DisplayList::addRow(const QString &text, bool canBeSplit)
{
    const auto line = static_cast<int>(m_rows.size());
    auto *const name = new QLabel(text);
    auto *const split = new QCheckBox(tr("Split into two monitors"));
    auto *const category = new QLabel;
    split->setObjectName(QStringLiteral("Split%1").arg(m_rows.size()));
    category->setObjectName(QStringLiteral("Category%1").arg(m_rows.size()));
    split->setAccessibleName(tr("Split %1 into two monitors").arg(text));
    split->setVisible(canBeSplit);
    m_grid->addWidget(name, line, 0);
    m_grid->addWidget(category, line, 1);
    m_grid->addWidget(split, line, 2);
    m_rows.push_back({split, category, {}});
    connect(split, &QCheckBox::clicked, this, &DisplayList::applySplit);
}

void DisplayList::addNote(const QString &text)
{
    auto *const note = new QLabel(text);
    note->setWordWrap(true);
    m_grid->addWidget(note, static_cast<int>(m_rows.size()), 0, 1, 3);
}

QString DisplayList::categoryText(const QRect &monitor) const
{
    using M = ExMonitorManager;
    const auto area = static_cast<float>(qint64{monitor.width()} * monitor.height()) / 1048576.0F;
    const M::MonitorCategory larger = m_medium > area ? M::CategoryMedium : M::CategoryLarge;
    const M::MonitorCategory category = m_small > area ? M::CategorySmall : larger;
    return tr("%1 (%2 megapixels)")
        .arg(nameOf(category), locale().toString(static_cast<double>(area), 'f', 2));
}

void DisplayList::showCategories()
{
    for (const Row &row : m_rows) {
        const int first = row.monitors.value(0, -1);
        const QString text = categoryText(manager().monitorRect(static_cast<unsigned int>(first)));
        row.category->setText(row.monitors.size() > 1 ? tr("2 × %1").arg(text) : text);
    }
}

void DisplayList::applySplit()
{
    QList<int> split;
    for (const Row &row : m_rows) {
        split.append(row.split->isChecked() ? 1 : 0);
    }
    const bool isKept = DisplaySplit::apply(split);
    refresh();
    if (!isKept) {
        Q_EMIT notKept();
    }
}
