#include "framework/editors/ExEditorRegion.h"

#include "framework/editors/EditorOptions.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegionPrivate.h"
#include "framework/editors/RegionLayout.h"

#include <QEvent>
#include <QMenu>
#include <QPointer>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace {

QList<ExEditorRegion *> &liveRegions()
{
    // Never destroyed: regions may be static objects of a client.
    static auto *const regions = new QList<ExEditorRegion *>;
    return *regions;
}

bool theIsDragging = false;

QSplitter *makeSplitter(Qt::Orientation orientation, QWidget *parent)
{
    constexpr int handle = 8;
    auto *const splitter = new QSplitter(orientation, parent);
    splitter->setHandleWidth(handle);
    return splitter;
}

} // namespace

ExEditorRegion::ExEditorRegion(Qt::Orientation stacking, int subRegions, QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    d->splitter = makeSplitter(stacking, this);
    layout->addWidget(d->splitter);
    setSubRegionCount(subRegions);
    liveRegions().append(this);
}

ExEditorRegion::~ExEditorRegion()
{
    d->isEnding = true;
    liveRegions().removeOne(this);
    d->closed.clear();
    while (!d->members.isEmpty()) {
        d->members.constLast()->resetEditorRegion();
    }
}

const QList<ExEditorRegion *> &ExEditorRegion::regions()
{
    return liveRegions();
}

Qt::Orientation ExEditorRegion::stacking() const
{
    return d->splitter->orientation();
}

int ExEditorRegion::subRegionCount() const
{
    return static_cast<int>(d->containers.size());
}

void ExEditorRegion::setSubRegionCount(int count)
{
    const int wanted = std::clamp(count, 1, RegionLayout::mostSubRegions);
    while (subRegionCount() < wanted) {
        appendContainer();
    }
    while (subRegionCount() > wanted) {
        removeLastContainer();
    }
    updateVisibility();
}

void ExEditorRegion::appendContainer()
{
    auto *const container = new ExEditorContainer(*this);
    container->hide();
    d->containers.append(container);
    d->splitter->addWidget(container);
}

void ExEditorRegion::removeLastContainer()
{
    const int last = subRegionCount() - 1;
    for (ExEditor *editor : d->containers.constLast()->editors()) {
        if (!insertEditor(editor, last - 1, -1)) {
            takeOut(*editor); // Its widget is not to go with the tabs.
        }
    }
    for (ExEditor *editor : d->members) {
        if (editor->subRegionIndex() == last) { // Floats, or its widget was taken.
            editor->setEditorRegion(this, last - 1);
        }
    }
    for (Private::Closed &place : d->closed) {
        place.subRegion = std::min(place.subRegion, last - 1);
    }
    // Later: its own menu may be what had it removed.
    ExEditorContainer *const container = d->containers.takeLast();
    container->hide();
    container->setParent(this);
    container->deleteLater();
}

QString ExEditorRegion::subRegionTitle(int subRegion) const
{
    const QString own = d->titles.value(subRegion);
    return own.isEmpty() ? tr("Area %1").arg(subRegion + 1) : own;
}

void ExEditorRegion::setSubRegionTitle(int subRegion, const QString &title)
{
    if (subRegion < 0 || subRegion >= subRegionCount()) {
        return;
    }
    d->titles.resize(std::max<qsizetype>(d->titles.size(), subRegion + 1));
    d->titles[subRegion] = title;
    d->containers.at(subRegion)->setAccessibleName(title);
}

ExEditorContainer *ExEditorRegion::editorContainer(int subRegion) const
{
    return d->containers.value(subRegion);
}

ExEditorContainer *ExEditorRegion::containerAt(const QPoint &position) const
{
    const auto isAt = [&](const ExEditorContainer *container) {
        const QPoint inside = container->mapFrom(this, position);
        return container->isVisible() && container->rect().contains(inside);
    };
    const auto found = std::find_if(d->containers.cbegin(), d->containers.cend(), isAt);
    return found == d->containers.cend() ? nullptr : *found;
}

int ExEditorRegion::indexOf(const ExEditorContainer *container) const
{
    const auto found = std::find(d->containers.cbegin(), d->containers.cend(), container);
    return found == d->containers.cend() ? -1 : static_cast<int>(found - d->containers.cbegin());
}

ExEditorContainer *ExEditorRegion::containerOf(const ExEditor &editor) const
{
    const auto found = std::find_if(d->containers.cbegin(), d->containers.cend(),
        [&](const ExEditorContainer *container) { return container->contains(&editor); });
    return found == d->containers.cend() ? nullptr : *found;
}

bool ExEditorRegion::acceptsEditor(const ExEditor & /*editor*/, int /*subRegion*/) const
{
    return true;
}

bool ExEditorRegion::addEditor(ExEditor *editor, int subRegion)
{
    return insertEditor(editor, subRegion, -1);
}

bool ExEditorRegion::insertEditor(ExEditor *editor, int subRegion, int position)
{
    ExEditorContainer *const container = editorContainer(subRegion);
    if (container == nullptr || !container->acceptsEditor(editor)) {
        return false;
    }
    if (container->contains(editor)) {
        container->move(*editor, position);
        return true;
    }
    if (ExEditorRegion *const previous = editor->editorRegion()) {
        previous->removeEditor(editor, editor->subRegionIndex());
    }
    editor->setEditorRegion(this, subRegion);
    container->insert(*editor, position);
    if (ExEditor::Layout *const arrangement = editor->layout()) {
        arrangement->setStacking(stacking());
    }
    contentChanged();
    if (container->count() == 1) {
        makeRoom(subRegion);
    }
    Q_EMIT editorAdded(editor, subRegion);
    container->announceCurrent();
    return true;
}

bool ExEditorRegion::removeEditor(ExEditor *editor, int subRegion)
{
    if (editor == nullptr) {
        return false;
    }
    if (takeFromClosed(*editor)) {
        return true;
    }
    const ExEditorContainer *const container = editorContainer(subRegion);
    return container != nullptr && container->contains(editor) && takeOut(*editor);
}

bool ExEditorRegion::takeOut(ExEditor &editor)
{
    const QPointer<ExEditorContainer> container = containerOf(editor);
    if (container == nullptr) {
        return false;
    }
    container->takeOut(editor);
    if (d->isEnding) {
        return true;
    }
    contentChanged();
    Q_EMIT editorRemoved(&editor, indexOf(container));
    if (container != nullptr) {
        container->announceCurrent();
    }
    return true;
}

bool ExEditorRegion::activateEditor(ExEditor *editor, int subRegion)
{
    ExEditorContainer *const container = editorContainer(subRegion);
    if (container == nullptr || !container->contains(editor)) {
        return false;
    }
    container->setCurrentEditor(editor);
    return true;
}

bool ExEditorRegion::closeEditor(ExEditor *editor)
{
    if (editor == nullptr || editor->editorRegion() != this || editor->isDisabled()) {
        return false;
    }
    retire(*editor, editor->subRegionIndex());
    return true;
}

/// Noted before the tab goes, so that whoever is told of that finds the editor disabled.
void ExEditorRegion::retire(ExEditor &editor, int subRegion)
{
    ExEditorRegion *const previous = editor.editorRegion();
    if (previous != nullptr && previous != this) {
        previous->removeEditor(&editor, editor.subRegionIndex());
    }
    editor.dockFloater(true);
    takeFromClosed(editor);
    editor.setEditorRegion(this, -1);
    d->closed.append({&editor, subRegion});
    takeOut(editor);
}

bool ExEditorRegion::takeFromClosed(ExEditor &editor)
{
    const auto found = std::find_if(d->closed.cbegin(), d->closed.cend(),
        [&](const Private::Closed &place) { return place.editor == &editor; });
    if (found == d->closed.cend()) {
        return false;
    }
    const int subRegion = found->subRegion;
    d->closed.erase(found);
    editor.setEditorRegion(this, subRegion);
    return true;
}

bool ExEditorRegion::showEditor(ExEditor *editor)
{
    return editor != nullptr && takeFromClosed(*editor)
        && addEditor(editor, editor->subRegionIndex())
        && activateEditor(editor, editor->subRegionIndex());
}

QList<ExEditor *> ExEditorRegion::closedEditors() const
{
    QList<ExEditor *> all;
    for (const Private::Closed &place : d->closed) {
        all.append(place.editor);
    }
    return all;
}

void ExEditorRegion::setHiddenWhenEmpty(bool hidden)
{
    d->isHiddenWhenEmpty = hidden;
    updateVisibility();
}

void ExEditorRegion::setDragging(bool dragging)
{
    theIsDragging = dragging;
    for (ExEditorRegion *region : liveRegions()) {
        region->showPlacesToDrop(dragging);
    }
}

void ExEditorRegion::showPlacesToDrop(bool show)
{
    const auto isEmpty = [](const ExEditorContainer *tabs) { return tabs->count() == 0; };
    QList<bool> empty;
    std::transform(
        d->containers.cbegin(), d->containers.cend(), std::back_inserter(empty), isEmpty);
    if (show) {
        d->emptyBeforeDrag = empty;
        d->sizesBeforeDrag = d->splitter->sizes();
    }
    updateVisibility();
    if (!show && empty == d->emptyBeforeDrag) {
        d->splitter->setSizes(d->sizesBeforeDrag);
    }
}

int ExEditorRegion::usualExtent(int subRegion) const
{
    const ExEditorContainer &container = *d->containers.at(subRegion);
    const QSize hint = container.sizeHint();
    const int wanted = stacking() == Qt::Horizontal ? hint.width() : hint.height();
    return container.m_extent > 0 ? container.m_extent : wanted;
}

/// For the first editor of a sub-region: what it had before, or what the editor would like, since
/// the place to drop on was small.
void ExEditorRegion::makeRoom(int subRegion)
{
    QList<int> sizes = d->splitter->sizes();
    const int total = std::accumulate(sizes.cbegin(), sizes.cend(), 0);
    if (total > 0) {
        sizes[subRegion] = std::min(usualExtent(subRegion), total / 2);
        d->splitter->setSizes(sizes);
    }
}

void ExEditorRegion::addMember(ExEditor &editor)
{
    d->members.append(&editor);
}

void ExEditorRegion::removeMember(ExEditor &editor)
{
    const auto isEditor = [&](const Private::Closed &place) { return place.editor == &editor; };
    d->members.removeOne(&editor);
    d->closed.removeIf(isEditor);
    takeOut(editor);
}

void ExEditorRegion::widgetLeft(ExEditor &editor, ExEditorContainer &container)
{
    if (d->isEnding) {
        return;
    }
    const QPointer<ExEditorContainer> tabs(&container);
    contentChanged();
    Q_EMIT editorRemoved(&editor, indexOf(&container));
    if (tabs != nullptr) {
        tabs->announceCurrent();
    }
}

void ExEditorRegion::contentChanged()
{
    for (int i = 0; i < subRegionCount(); ++i) {
        ExEditorContainer &container = *d->containers.at(i);
        const int extent = d->splitter->sizes().at(i);
        if (container.count() == 0 && !container.isHidden() && !theIsDragging && extent > 0) {
            container.m_extent = extent;
        }
    }
    updateVisibility();
    updateMinimum();
}

void ExEditorRegion::updateVisibility()
{
    for (ExEditorContainer *container : d->containers) {
        container->setVisible(container->count() > 0 || theIsDragging);
    }
    // One without a parent would become a window.
    if (d->isHiddenWhenEmpty && parentWidget() != nullptr) {
        setVisible(std::any_of(d->containers.cbegin(), d->containers.cend(),
            [](const ExEditorContainer *container) { return !container->isHidden(); }));
    }
}

/// The splitter sees to the sizes along the stacking.
void ExEditorRegion::updateMinimum()
{
    int extent = 0;
    for (const ExEditorContainer *container : d->containers) {
        const int frame
            = stacking() == Qt::Horizontal ? container->tabBar()->sizeHint().height() : 0;
        for (const ExEditor *editor : container->editors()) {
            extent = std::max(extent, frame + editor->minimumSize(stacking()));
        }
    }
    if (extent == d->minimum) {
        return;
    }
    d->minimum = extent;
    if (stacking() == Qt::Horizontal) {
        setMinimumHeight(extent);
    } else {
        setMinimumWidth(extent);
    }
    Q_EMIT minimumSizeChanged(this);
}

bool ExEditorRegion::event(QEvent *event)
{
    const bool result = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest && !d->isEnding) {
        updateMinimum(); // A panel may want more room than before.
    }
    return result;
}

void ExEditorRegion::showOptions(int subRegion, const QPoint &position)
{
    if (editorContainer(subRegion) == nullptr) {
        return;
    }
    QMenu *const menu = EditorOptions::makeMenu(*this, subRegion);
    const QList<QAction *> own = menu->findChildren<QAction *>();
    Q_EMIT aboutToShowOptions(this, subRegion, menu);
    QObject::connect(menu, &QMenu::triggered, this, [this, subRegion, own](QAction *action) {
        if (!own.contains(action)) {
            Q_EMIT optionActivated(this, subRegion, action);
        }
    });
    menu->popup(position);
}
