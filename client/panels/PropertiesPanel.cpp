#include "client/panels/PropertiesPanel.h"

#include "client/application/PropertyEditor.h"
#include "client/application/SvgIconEngine.h"
#include "client/panels/SearchField.h"
#include "client/panels/SearchText.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxTranslationProperty.h"
#include "platform/properties/KxVariant.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace {

enum Column { Name, Value, Reset, numColumns };

constexpr int resetWidth = 40;

bool matchesAny(const QList<QRegularExpression> &patterns, const QString &key)
{
    return std::any_of(patterns.begin(), patterns.end(),
        [&key](const QRegularExpression &pattern) { return pattern.match(key).hasMatch(); });
}

/// "UI.MonitorDependent" of "UI.MonitorDependent.ThumbnailSize".
QString groupKey(const QString &key)
{
    return key.section(QLatin1Char('.'), 0, -2);
}

QString nameOf(const KxVariant &property)
{
    const QString label = property.label();
    return label.isEmpty() ? property.key().section(QLatin1Char('.'), -1) : label;
}

} // namespace

PropertiesPanel::PropertiesPanel(
    QList<QRegularExpression> shown, QList<QRegularExpression> hidden, QWidget *parent)
    : QWidget(parent)
    , m_shown(std::move(shown))
    , m_hidden(std::move(hidden))
    , m_tree(new QTreeWidget)
    , m_search(new SearchField(tr("Search settings"), *m_tree))
    , m_message(new QLabel)
    , m_resetAll(new QPushButton(tr("&Reset all")))
{
    setObjectName(QStringLiteral("Properties"));
    setWindowTitle(tr("Settings"));
    build();
}

PropertiesPanel::~PropertiesPanel()
{
    hide(); // Fields that lose the focus tell their values, while there is somebody to be told.
}

void PropertiesPanel::build()
{
    constexpr int space = 4;
    m_resetAll->setObjectName(QStringLiteral("ResetAll"));
    m_resetAll->setToolTip(tr("Puts all settings shown here back to their defaults"));
    m_resetAll->setAutoDefault(false);
    m_tree->setColumnCount(numColumns);
    m_tree->setHeaderLabels({tr("Setting"), tr("Value"), QString()});
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(Value, QHeaderView::Stretch);
    m_tree->setColumnWidth(Reset, resetWidth);
    m_tree->setSelectionMode(QAbstractItemView::NoSelection);
    m_tree->setFocusPolicy(Qt::NoFocus);
    m_tree->setAccessibleName(tr("Settings"));
    m_message->setWordWrap(true);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(space, space, space, space);
    layout->setSpacing(space);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_search, m_tree, m_message}) {
        layout->addWidget(widget);
    }
    layout->addWidget(m_resetAll, 0, Qt::AlignLeft);
    connect(m_search, &QLineEdit::textChanged, this, &PropertiesPanel::filter);
    connect(m_resetAll, &QPushButton::clicked, this, &PropertiesPanel::resetAll);
}

void PropertiesPanel::setProperties(const std::list<KxVariant *> &properties)
{
    m_properties = properties;
    m_isOfPool = false;
    fill();
}

void PropertiesPanel::showEvent(QShowEvent *event)
{
    // Some settings are registered when they are first needed.
    if (m_isOfPool && m_properties != KxPropertyPool::instance().properties()) {
        fill();
    }
    QWidget::showEvent(event);
}

void PropertiesPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    adaptColumns();
}

void PropertiesPanel::adaptColumns()
{
    // In a narrow panel names are cut off rather than values.
    constexpr double most = 0.55;
    m_tree->resizeColumnToContents(Name);
    const int limit = static_cast<int>(most * (m_tree->viewport()->width() - resetWidth));
    if (m_tree->columnWidth(Name) > limit) {
        m_tree->setColumnWidth(Name, limit);
    }
}

bool PropertiesPanel::isShown(const KxVariant &property) const
{
    return (m_shown.isEmpty() || matchesAny(m_shown, property.key()))
        && !matchesAny(m_hidden, property.key());
}

void PropertiesPanel::fill()
{
    if (m_isOfPool) {
        m_properties = KxPropertyPool::instance().properties();
    }
    for (const Row &row : m_rows) {
        row.property->disconnect(this);
    }
    m_rows.clear();
    m_tree->clear();
    for (KxVariant *property : m_properties) {
        if (isShown(*property)) {
            addRow(*property);
        }
    }
    m_tree->expandAll();
    adaptColumns();
    m_tree->sortItems(Name, Qt::AscendingOrder);
    filter(m_search->text());
    updateButtons();
}

QTreeWidgetItem *PropertiesPanel::groupFor(const KxVariant &property)
{
    const QString key = groupKey(property.key());
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        if (m_tree->topLevelItem(i)->data(Name, Qt::UserRole) == key) {
            return m_tree->topLevelItem(i);
        }
    }
    const QString label = KxTranslationProperty::label(key);
    auto *const group = new QTreeWidgetItem(m_tree, {label.isEmpty() ? key : label});
    group->setData(Name, Qt::UserRole, key);
    group->setFirstColumnSpanned(true);
    return group;
}

void PropertiesPanel::addRow(KxVariant &property)
{
    auto *const item = new QTreeWidgetItem(groupFor(property), {nameOf(property)});
    item->setToolTip(Name, nameOf(property) % u'\n' % property.key());
    auto *const editor = new PropertyEditor(property, m_tree);
    m_tree->setItemWidget(item, Value, editor);
    auto *const reset = new QToolButton;
    reset->setIcon(QIcon(new SvgIconEngine(QStringLiteral("undo"))));
    reset->setToolTip(tr("Back to the default"));
    reset->setAccessibleName(tr("%1: back to the default").arg(nameOf(property)));
    m_tree->setItemWidget(item, Reset, reset);
    m_rows.push_back({&property, item, property.toString()});
    connect(reset, &QToolButton::clicked, &property, [&property] { property.changeToDefault(); });
    connect(&property, &KxVariant::propertyChanged, this, [this] {
        updateButtons();
        filter(m_search->text()); // Instead of what was told of a value before.
    });
    connect(editor, &PropertyEditor::refused, this, [this, &property](const QString &text) {
        m_message->setText(tr("“%1” is no value for %2.").arg(text, nameOf(property)));
        m_message->show();
    });
}

void PropertiesPanel::filter(const QString &text)
{
    const QStringList words = SearchText::words(text);
    for (const Row &row : m_rows) {
        const QString searched = row.item->text(Name) % u'\n' % row.item->parent()->text(Name)
            % u'\n' % row.property->key();
        row.item->setHidden(!SearchText::holdsAll(SearchText::folded(searched), words));
    }
    const bool anyFound = hideEmptyGroups();
    m_message->setText(m_rows.empty() ? tr("There are no settings here.")
                                      : tr("No setting has “%1” in its name.").arg(text));
    m_message->setVisible(!anyFound);
}

bool PropertiesPanel::hideEmptyGroups()
{
    bool anyShown = false;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem &group = *m_tree->topLevelItem(i);
        bool hasShown = false;
        for (int k = 0; k < group.childCount(); ++k) {
            hasShown = hasShown || !group.child(k)->isHidden();
        }
        group.setHidden(!hasShown);
        anyShown = anyShown || hasShown;
    }
    return anyShown;
}

void PropertiesPanel::resetAll()
{
    for (const Row &row : m_rows) {
        if (!row.item->isHidden()) {
            row.property->changeToDefault();
        }
    }
}

void PropertiesPanel::updateButtons()
{
    bool anyChanged = false;
    for (const Row &row : m_rows) {
        m_tree->itemWidget(row.item, Reset)->setEnabled(!row.property->isDefault());
        anyChanged = anyChanged || !row.property->isDefault();
    }
    m_resetAll->setEnabled(anyChanged);
}

QList<QRegularExpression> PropertiesPanel::internalSettings()
{
    return {QRegularExpression(QStringLiteral("^Hidden\\.")),
        QRegularExpression(QStringLiteral("^UI\\.(DialogPositionSize|Placement|ToolBarState)\\."))};
}

int PropertiesPanel::numChanged() const
{
    return static_cast<int>(std::count_if(m_rows.begin(), m_rows.end(),
        [](const Row &row) { return row.property->toString() != row.textBefore; }));
}
