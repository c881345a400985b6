#include "client/monitors/MonitorSettingsPage.h"

#include "client/app/NotificationWatch.h"
#include "client/monitors/DisplayList.h"
#include "client/panels/StatusText.h"
#include "platform/properties/KxPropertyPool.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <array>
#include <cmath>

namespace {

using M = ExMonitorManager;

/// What has a size on each class of monitors.
struct SizeRow
{
    const char *label;
    std::array<const char *, 3> keys;
    int smallest;
    int largest;
    const char *suffix;
};

constexpr std::array<SizeRow, 3> sizeRows{{
    {QT_TRANSLATE_NOOP("MonitorSettingsPage", "Application font"),
        {M::PROPERTY_FONT_SIZE_SMALL, M::PROPERTY_FONT_SIZE_MEDIUM, M::PROPERTY_FONT_SIZE_LARGE}, 4,
        72, QT_TRANSLATE_NOOP("MonitorSettingsPage", " pt")},
    {QT_TRANSLATE_NOOP("MonitorSettingsPage", "Thumbnails"),
        {M::PROPERTY_THUMBNAIL_SIZE_SMALL, M::PROPERTY_THUMBNAIL_SIZE_MEDIUM,
            M::PROPERTY_THUMBNAIL_SIZE_LARGE},
        16, 1024, QT_TRANSLATE_NOOP("MonitorSettingsPage", " px")},
    {QT_TRANSLATE_NOOP("MonitorSettingsPage", "Font on thumbnails"),
        {M::PROPERTY_THUMBNAIL_FONT_SIZE_SMALL, M::PROPERTY_THUMBNAIL_FONT_SIZE_MEDIUM,
            M::PROPERTY_THUMBNAIL_FONT_SIZE_LARGE},
        4, 72, QT_TRANSLATE_NOOP("MonitorSettingsPage", " pt")},
}};

QLabel *note(const QString &text)
{
    auto *const label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}

/// Whether a field shows a value, as far as its decimals go.
bool shows(const QDoubleSpinBox &field, float value)
{
    constexpr double half = 0.006;
    return std::abs(field.value() - static_cast<double>(value)) < half;
}

bool shows(const QSpinBox &field, int value)
{
    return field.value() == value;
}

QString valueText(const QDoubleSpinBox &field)
{
    return field.locale().toString(field.value(), 'f', field.decimals());
}

} // namespace

MonitorSettingsPage::MonitorSettingsPage(const QString &siteFile, QWidget *parent)
    : QDialog(parent)
    , m_site(siteFile)
    , m_displays(new DisplayList)
    , m_message(new StatusText)
    , m_siteMessage(new StatusText)
    , m_save(new QPushButton(tr("&Save for this site")))
    , m_watch(new NotificationWatch({ExNotification::MONITOR_CONFIGURATION_CHANGED},
          [this](const ExNotification & /*notification*/) { m_displays->refresh(); }))
{
    setObjectName(QStringLiteral("MonitorSettings"));
    setWindowTitle(tr("Monitor settings"));
    auto *const layout = new QVBoxLayout(this);
    for (QWidget *const widget : std::initializer_list<QWidget *>{
             displaysBox(), thresholdsBox(), sizesBox(), m_message, m_siteMessage}) {
        layout->addWidget(widget);
    }
    layout->addStretch(1);
    layout->addWidget(buttons());
    m_message->setObjectName(QStringLiteral("Message"));
    m_message->setWordWrap(true);
    // Room for it from the beginning, so that nothing is squeezed or jumps when there is one.
    m_message->setMinimumHeight(2 * m_message->fontMetrics().lineSpacing());
    m_siteMessage->setObjectName(QStringLiteral("SiteMessage"));
    m_siteMessage->setWordWrap(true);
    const QString trouble = m_site.problem();
    m_canSave = trouble.isEmpty();
    m_siteMessage->showText(trouble.isEmpty()
            ? tr(
                "Classes and sizes hold until the program ends. Saved for this site, they hold for "
                "everyone from the next start on.")
            : tr("Classes and sizes hold until the program ends. They cannot be saved for this "
                 "site: "
                 "%1")
                  .arg(trouble));
    showState();
    connect(m_displays, &DisplayList::notKept, this, [this] {
        m_message->showWarning(
            tr("How displays are split could not be kept; it holds until the program ends."));
    });
}

MonitorSettingsPage::~MonitorSettingsPage()
{
    hide(); // Fields that lose the focus tell their values, while there is somebody to be told.
}

QGroupBox *MonitorSettingsPage::displaysBox()
{
    auto *const box = new QGroupBox(tr("Displays"));
    auto *const layout = new QVBoxLayout(box);
    layout->addWidget(note(tr("A wide display can be used as two monitors side by side. This is "
                              "kept for you.")));
    layout->addWidget(m_displays);
    return box;
}

QGroupBox *MonitorSettingsPage::thresholdsBox()
{
    auto *const box = new QGroupBox(tr("Classes of monitors"));
    auto *const grid = new QGridLayout(box);
    grid->setHorizontalSpacing(12);
    const std::array<QString, 2> names{tr("Medium, from"), tr("Large, from")};
    const std::array<const char *, 2> keys{
        M::PROPERTY_THRESHOLD_SMALL, M::PROPERTY_THRESHOLD_MEDIUM};
    for (int i = 0; i < 2; ++i) {
        QDoubleSpinBox *const field = addThreshold(keys.at(std::size_t(i)));
        auto *const label = new QLabel(names.at(std::size_t(i)));
        label->setBuddy(field);
        field->setAccessibleName(names.at(std::size_t(i)));
        grid->addWidget(label, 0, 2 * i);
        grid->addWidget(field, 0, 2 * i + 1);
    }
    grid->setColumnStretch(4, 1);
    return box;
}

QGroupBox *MonitorSettingsPage::sizesBox()
{
    auto *const box = new QGroupBox(tr("Sizes of fonts and thumbnails"));
    auto *const grid = new QGridLayout(box);
    const std::array categories{M::CategorySmall, M::CategoryMedium, M::CategoryLarge};
    for (const M::MonitorCategory category : categories) {
        grid->addWidget(new QLabel(DisplayList::nameOf(category)), 0, 1 + category);
    }
    for (std::size_t i = 0; i < sizeRows.size(); ++i) {
        const SizeRow &row = sizeRows.at(i);
        const auto line = static_cast<int>(i) + 1;
        grid->addWidget(new QLabel(tr(row.label)), line, 0);
        for (const M::MonitorCategory category : categories) {
            QSpinBox *const field = addSize(
                row.keys.at(std::size_t(category)), row.smallest, row.largest, tr(row.suffix));
            field->setAccessibleName(
                tr("%1, %2").arg(tr(row.label), DisplayList::nameOf(category)));
            grid->addWidget(field, line, 1 + category);
        }
    }
    grid->setColumnStretch(4, 1);
    return box;
}

QWidget *MonitorSettingsPage::buttons()
{
    auto *const box = new QDialogButtonBox(QDialogButtonBox::Close);
    m_save->setObjectName(QStringLiteral("SaveForSite"));
    m_save->setToolTip(tr("Writes classes and sizes into %1").arg(m_site.fileName()));
    box->addButton(m_save, QDialogButtonBox::ActionRole);
    QPushButton *const reset = box->addButton(tr("&Reset"), QDialogButtonBox::ResetRole);
    reset->setObjectName(QStringLiteral("ResetAll"));
    reset->setToolTip(tr("Puts classes and sizes back to what they are without any settings"));
    // The return key ends the entry of a value, nothing else.
    for (QPushButton *const button : box->findChildren<QPushButton *>()) {
        button->setAutoDefault(false);
        button->setIcon({});
    }
    connect(m_save, &QPushButton::clicked, this, &MonitorSettingsPage::saveForSite);
    connect(reset, &QPushButton::clicked, this, &MonitorSettingsPage::resetAll);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return box;
}

QDoubleSpinBox *MonitorSettingsPage::addThreshold(const char *key)
{
    constexpr double largest = 1000;
    constexpr double step = 0.1;
    auto *const field = new QDoubleSpinBox;
    auto *const property = KxPropertyPool::instance().find<float>(key);
    field->setObjectName(QLatin1String(key));
    field->setRange(0, largest);
    field->setSingleStep(step);
    field->setSuffix(tr(" megapixels"));
    field->setKeyboardTracking(false);
    m_thresholds.push_back({property, field});
    follow(m_thresholds.back());
    connect(field, &QDoubleSpinBox::valueChanged, this, &MonitorSettingsPage::applyThresholds);
    return field;
}

QSpinBox *MonitorSettingsPage::addSize(
    const char *key, int smallest, int largest, const QString &suffix)
{
    auto *const field = new QSpinBox;
    auto *const property = KxPropertyPool::instance().find<int>(key);
    field->setObjectName(QLatin1String(key));
    field->setRange(smallest, largest);
    field->setSuffix(suffix);
    // A font of one point on the way to twelve would be no help.
    field->setKeyboardTracking(false);
    m_sizes.push_back({property, field});
    follow(m_sizes.back());
    connect(field, &QSpinBox::valueChanged, this, [this, property](int value) {
        property->change(value);
        showState();
    });
    return field;
}

template <typename Row>
void MonitorSettingsPage::follow(const Row &row)
{
    const auto show = [this, row] {
        const QSignalBlocker blocker(row.field);
        row.field->setValue(row.property->value());
        showState();
    };
    connect(row.property, &KxVariant::propertyChanged, row.field, show);
    const QSignalBlocker blocker(row.field);
    row.field->setValue(row.property->value());
}

void MonitorSettingsPage::applyThresholds()
{
    if (isInOrder()) {
        for (const auto &[property, field] : m_thresholds) {
            if (!shows(*field, property->value())) {
                property->change(static_cast<float>(field->value()));
            }
        }
    }
    showState();
}

bool MonitorSettingsPage::isInOrder() const
{
    return m_thresholds[0].field->value() <= m_thresholds[1].field->value();
}

QString MonitorSettingsPage::orderProblem() const
{
    const QString text
        = tr(
            "Medium monitors would begin at %1 megapixels, after large ones at %2. Give the larger "
            "number to the large ones.")
              .arg(valueText(*m_thresholds[0].field), valueText(*m_thresholds[1].field));
    const bool isStored = m_thresholds[0].property->value() > m_thresholds[1].property->value();
    return text + QLatin1Char(' ')
        + (isStored ? tr("Until then no monitor counts as medium.")
                    : tr("Until then the numbers from before hold."));
}

QString MonitorSettingsPage::problem() const
{
    if (!isInOrder()) {
        return orderProblem();
    }
    const auto firstOf = [](const auto &rows) -> QString {
        for (const auto &[property, field] : rows) {
            if (!shows(*field, property->value())) {
                return tr("“%1” is set to %2, which cannot be used. Choose a number from %3 to %4.")
                    .arg(property->label(), property->toString())
                    .arg(field->minimum())
                    .arg(field->maximum());
            }
        }
        return {};
    };
    const QString ofThresholds = firstOf(m_thresholds);
    return ofThresholds.isEmpty() ? firstOf(m_sizes) : ofThresholds;
}

void MonitorSettingsPage::showState()
{
    const QString trouble = problem();
    m_message->showWarning(trouble);
    m_save->setEnabled(trouble.isEmpty() && m_canSave);
    m_displays->setThresholds(m_thresholds[0].property->value(), m_thresholds[1].property->value());
}

void MonitorSettingsPage::resetAll()
{
    const auto reset = [](const auto &rows) {
        for (const auto &[property, field] : rows) {
            property->changeToDefault();
            // What was being entered, or cannot be used, goes too.
            const QSignalBlocker blocker(field);
            field->setValue(property->value());
        }
    };
    reset(m_thresholds);
    reset(m_sizes);
    showState();
}

std::vector<const KxVariant *> MonitorSettingsPage::settings() const
{
    std::vector<const KxVariant *> all;
    for (const auto &row : m_thresholds) {
        all.push_back(row.property);
    }
    for (const auto &row : m_sizes) {
        all.push_back(row.property);
    }
    return all;
}

void MonitorSettingsPage::saveForSite()
{
    const QString trouble = m_site.save(settings());
    if (trouble.isEmpty()) {
        m_siteMessage->showText(tr("Saved in %1. It holds for everyone from the next start on.")
                                    .arg(m_site.fileName()));
    } else {
        m_siteMessage->showWarning(trouble);
    }
}
