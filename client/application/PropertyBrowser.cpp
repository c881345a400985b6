#include "client/application/PropertyBrowser.h"

#include "client/application/PropertyEditor.h"
#include "client/application/SvgIconEngine.h"
#include "platform/properties/KxTranslationProperty.h"
#include "platform/properties/KxVariant.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

enum Column { Name, Value, Reset, numColumns };

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

PropertyBrowser::PropertyBrowser(const std::list<KxVariant *> &properties,
    const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden,
    QWidget *parent)
    : QDialog(parent)
    , m_search(new QLineEdit)
    , m_tree(new QTreeWidget)
    , m_message(new QLabel)
    , m_resetAll(new QPushButton(tr("&Reset all")))
{
    setObjectName(QStringLiteral("PropertyBrowser"));
    setWindowTitle(tr("Settings"));
    build();
    for (KxVariant *property : properties) {
        const bool isShown = shown.isEmpty() || matchesAny(shown, property->key());
        if (isShown && !matchesAny(hidden, property->key())) {
            addRow(*property);
        }
    }
    m_tree->expandAll();
    m_tree->resizeColumnToContents(Name);
    m_tree->sortItems(Name, Qt::AscendingOrder);
    m_message->setVisible(m_rows.empty());
    update();
}

PropertyBrowser::~PropertyBrowser()
{
    hide(); // Fields that lose the focus tell their values, while there is somebody to be told.
}

void PropertyBrowser::build()
{
    constexpr QSize size(760, 560);
    constexpr int resetWidth = 40;
    m_search->setObjectName(QStringLiteral("Search"));
    m_resetAll->setObjectName(QStringLiteral("ResetAll"));
    m_search->setPlaceholderText(tr("Search settings"));
    m_search->setAccessibleName(tr("Search settings"));
    m_search->setClearButtonEnabled(true);
    m_tree->setColumnCount(numColumns);
    m_tree->setHeaderLabels({tr("Setting"), tr("Value"), QString()});
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(Value, QHeaderView::Stretch);
    m_tree->setColumnWidth(Reset, resetWidth);
    m_tree->setSelectionMode(QAbstractItemView::NoSelection);
    m_tree->setFocusPolicy(Qt::NoFocus);
    m_tree->setAccessibleName(tr("Settings"));
    m_message->setWordWrap(true);
    m_message->setText(tr("There are no settings here."));
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->addButton(m_resetAll, QDialogButtonBox::ResetRole);
    m_resetAll->setToolTip(tr("Puts all settings shown here back to their defaults"));
    // The return key ends the entry of a value, nothing else.
    for (QPushButton *button : buttons->findChildren<QPushButton *>()) {
        button->setAutoDefault(false);
        button->setIcon({});
    }
    auto *const layout = new QVBoxLayout(this);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_search, m_tree, m_message, buttons}) {
        layout->addWidget(widget);
    }
    resize(size);
    connect(m_search, &QLineEdit::textChanged, this, &PropertyBrowser::filter);
    connect(m_resetAll, &QPushButton::clicked, this, &PropertyBrowser::resetAll);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QTreeWidgetItem *PropertyBrowser::groupFor(const KxVariant &property)
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

void PropertyBrowser::addRow(KxVariant &property)
{
    auto *const item = new QTreeWidgetItem(groupFor(property), {nameOf(property)});
    item->setToolTip(Name, property.key());
    auto *const editor = new PropertyEditor(property, m_tree);
    m_tree->setItemWidget(item, Value, editor);
    auto *const reset = new QToolButton;
    reset->setIcon(QIcon(new SvgIconEngine(QStringLiteral("undo"))));
    reset->setToolTip(tr("Back to the default"));
    reset->setAccessibleName(tr("%1: back to the default").arg(nameOf(property)));
    m_tree->setItemWidget(item, Reset, reset);
    m_rows.push_back({&property, item, property.toString()});
    connect(reset, &QToolButton::clicked, &property, [&property] { property.changeToDefault(); });
    connect(&property, &KxVariant::propertyChanged, this, &PropertyBrowser::update);
    connect(editor, &PropertyEditor::refused, this, [this, &property](const QString &text) {
        m_message->setText(tr("“%1” is no value for %2.").arg(text, nameOf(property)));
        m_message->show();
    });
}

void PropertyBrowser::filter(const QString &text)
{
    for (const Row &row : m_rows) {
        const bool isFound = row.item->text(Name).contains(text, Qt::CaseInsensitive)
            || row.item->parent()->text(Name).contains(text, Qt::CaseInsensitive)
            || row.property->key().contains(text, Qt::CaseInsensitive);
        row.item->setHidden(!isFound);
    }
    bool anyFound = false;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem &group = *m_tree->topLevelItem(i);
        bool hasShown = false;
        for (int k = 0; k < group.childCount(); ++k) {
            hasShown = hasShown || !group.child(k)->isHidden();
        }
        group.setHidden(!hasShown);
        anyFound = anyFound || hasShown;
    }
    m_message->setText(tr("No setting has “%1” in its name.").arg(text));
    m_message->setVisible(!anyFound);
}

void PropertyBrowser::resetAll()
{
    for (const Row &row : m_rows) {
        if (!row.item->isHidden()) {
            row.property->changeToDefault();
        }
    }
}

void PropertyBrowser::update()
{
    bool anyChanged = false;
    for (const Row &row : m_rows) {
        m_tree->itemWidget(row.item, Reset)->setEnabled(!row.property->isDefault());
        anyChanged = anyChanged || !row.property->isDefault();
    }
    m_resetAll->setEnabled(anyChanged);
}

int PropertyBrowser::numChanged() const
{
    return static_cast<int>(std::count_if(m_rows.begin(), m_rows.end(),
        [](const Row &row) { return row.property->toString() != row.textBefore; }));
}
