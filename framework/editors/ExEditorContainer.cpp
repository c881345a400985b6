#include "framework/editors/ExEditorContainer.h"

#include "framework/editors/EditorDrag.h"
#include "framework/editors/EditorOptions.h"
#include "framework/editors/EditorTabBar.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorRegion.h"
#include "platform/toolkit/QxStyleFactory.h"

#include <QPainter>
#include <QScopedValueRollback>

namespace {

/// Not the program's, which every window without one of its own has.
QIcon ownIcon(const QWidget &page)
{
    return page.testAttribute(Qt::WA_SetWindowIcon) ? page.windowIcon() : QIcon();
}

} // namespace

ExEditorContainer::ExEditorContainer(ExEditorRegion &region)
    : m_region(region)
{
    auto *const bar = new EditorTabBar;
    bar->setAccessibleName(tr("Panels"));
    setTabBar(bar);
    setDocumentMode(true); // Panels have frames of their own.
    bar->setDrawBase(false);
    setMovable(true);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideRight);
    auto *const button = new EditorOptionsButton;
    button->setToolTip(tr("Float, move or close the panel"));
    button->setAccessibleName(tr("Panel options"));
    setCornerWidget(button);
    QObject::connect(button, &QToolButton::clicked, this, [this, button] {
        showOptions(currentIndex(), button->mapToGlobal(button->rect().bottomLeft()));
    });
    QObject::connect(bar, &EditorTabBar::draggedOut, this, &ExEditorContainer::startDrag);
    QObject::connect(bar, &EditorTabBar::optionsRequested, this, &ExEditorContainer::showOptions);
    QObject::connect(
        bar, &QTabBar::tabMoved, this, [this](int from, int to) { m_editors.move(from, to); });
    QObject::connect(this, &QTabWidget::currentChanged, this, &ExEditorContainer::announceCurrent);
}

ExEditorContainer::~ExEditorContainer() = default;

int ExEditorContainer::subRegionIndex() const
{
    return m_region.indexOf(this);
}

bool ExEditorContainer::acceptsEditor(const ExEditor *editor) const
{
    return editor != nullptr && editor->widgetForMonitor(0) != nullptr
        && m_region.acceptsEditor(*editor, subRegionIndex());
}

ExEditor *ExEditorContainer::currentEditor() const
{
    return m_editors.value(currentIndex());
}

void ExEditorContainer::setCurrentEditor(ExEditor *editor)
{
    if (editor == nullptr) {
        return;
    }
    if (!contains(editor) && editor->editorContainer() == this) {
        m_region.addEditor(editor, subRegionIndex());
    }
    if (contains(editor)) {
        setCurrentIndex(indexOfEditor(editor));
    }
}

QWidget *ExEditorContainer::takeWidget(ExEditor *editor)
{
    if (editor == nullptr) {
        return nullptr;
    }
    QWidget *const taken = widget(indexOfEditor(editor));
    m_region.removeEditor(editor, subRegionIndex());
    return taken == nullptr ? editor->widgetForMonitor(0) : taken;
}

bool ExEditorContainer::contains(const ExEditor *editor) const
{
    return indexOfEditor(editor) >= 0;
}

QList<ExEditor *> ExEditorContainer::editors() const
{
    QList<ExEditor *> all;
    for (const QPointer<ExEditor> &editor : m_editors) {
        if (editor != nullptr) {
            all.append(editor);
        }
    }
    return all;
}

int ExEditorContainer::indexOfEditor(const ExEditor *editor) const
{
    for (int i = 0; editor != nullptr && i < count(); ++i) {
        if (m_editors.value(i) == editor) {
            return i;
        }
    }
    return -1;
}

void ExEditorContainer::insert(ExEditor &editor, int position)
{
    const QScopedValueRollback<bool> changing(m_isChanging, true);
    QWidget *const page = editor.widgetForMonitor(0);
    m_incoming = &editor;
    insertTab(position, page, ownIcon(*page), EditorOptions::titleOf(editor));
    m_incoming = nullptr;
    const auto refresh = [this, shown = QPointer<ExEditor>(&editor), page] {
        const int index = indexOf(page);
        if (index >= 0 && shown != nullptr) {
            setTabText(index, EditorOptions::titleOf(*shown));
            setTabToolTip(index, EditorOptions::titleOf(*shown));
            setTabIcon(index, ownIcon(*page));
        }
    };
    refresh();
    QObject::connect(page, &QWidget::windowTitleChanged, this, refresh);
    QObject::connect(page, &QWidget::windowIconChanged, this, refresh);
}

void ExEditorContainer::move(const ExEditor &editor, int position)
{
    // Before its own place an editor makes room when it leaves, behind it the others move up.
    const int from = indexOfEditor(&editor);
    const int to = position > from ? position - 1 : position;
    if (position >= 0 && from >= 0 && to != from) {
        tabBar()->moveTab(from, qMin(to, count() - 1));
    }
}

QWidget *ExEditorContainer::takeOut(const ExEditor &editor)
{
    const QScopedValueRollback<bool> changing(m_isChanging, true);
    const int index = indexOfEditor(&editor);
    QWidget *const page = widget(index);
    removeTab(index);
    QObject::disconnect(page, nullptr, this, nullptr);
    page->setParent(nullptr);
    return page;
}

void ExEditorContainer::tabInserted(int index)
{
    QTabWidget::tabInserted(index);
    m_editors.insert(index, m_incoming);
}

void ExEditorContainer::tabRemoved(int index)
{
    QTabWidget::tabRemoved(index);
    const QPointer<ExEditor> editor = m_editors.takeAt(index);
    if (!m_isChanging && editor != nullptr) {
        m_region.widgetLeft(*editor, *this); // Destroyed, or given another parent.
    }
}

void ExEditorContainer::announceCurrent()
{
    ExEditor *const current = currentEditor();
    if (m_isChanging || current == m_announced) {
        return;
    }
    m_announced = current;
    if (current != nullptr) {
        Q_EMIT m_region.editorActivated(current, subRegionIndex());
    }
}

QSize ExEditorContainer::minimumSizeHint() const
{
    constexpr QSize placeToDrop(96, 64);
    return count() == 0 ? placeToDrop : QTabWidget::minimumSizeHint();
}

QSize ExEditorContainer::sizeHint() const
{
    return count() == 0 ? minimumSizeHint() : QTabWidget::sizeHint();
}

void ExEditorContainer::paintEvent(QPaintEvent * /*event*/)
{
    if (count() > 0) {
        return; // The line that the toolkit draws beside the tabs stops short of the button.
    }
    using Role = QxStyleFactory::ColorRole;
    const QxStyleFactory &colors = QxStyleFactory::instance();
    constexpr int gap = 4;
    const QRect place = rect().adjusted(gap, gap, -gap - 1, -gap - 1);
    QPainter painter(this);
    painter.fillRect(rect(), colors.color(Role::Window));
    painter.setPen(QPen(colors.color(Role::Hairline), 1, Qt::DashLine));
    painter.drawRect(place);
    painter.setPen(colors.textColor(Role::SecondaryText, Role::Window));
    painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, tr("Drop panels here"));
}

void ExEditorContainer::startDrag(int index, const QPoint &position)
{
    constexpr QPoint underPointer(48, 16);
    if (ExEditor *const editor = m_editors.value(index)) {
        EditorDrag::begin(*editor, position, underPointer, nullptr);
    }
}

void ExEditorContainer::showOptions(int index, const QPoint &position)
{
    setCurrentIndex(index);
    m_region.showOptions(subRegionIndex(), position);
}
