// The layouts of a region: what is kept of it over restarts, and how that is taken over.

#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"
#include "framework/editors/ExEditorRegionPrivate.h"
#include "framework/editors/RegionLayout.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSet>

#include <algorithm>

namespace {

McBox2f relativeGeometry(const QRect &geometry)
{
    const QScreen *const at = QGuiApplication::screenAt(geometry.center());
    const QScreen *const screen = at == nullptr ? QGuiApplication::primaryScreen() : at;
    const QRect area = screen == nullptr ? QRect() : screen->availableGeometry();
    if (area.isEmpty()) {
        return {};
    }
    const auto fraction = [](int value, int start, int extent) {
        return static_cast<float>(value - start) / static_cast<float>(extent);
    };
    return {fraction(geometry.left(), area.left(), area.width()),
        fraction(geometry.top(), area.top(), area.height()),
        fraction(geometry.right() + 1, area.left(), area.width()),
        fraction(geometry.bottom() + 1, area.top(), area.height())};
}

/// Whether the user can reach the window's handle.
bool isReachable(const QRect &geometry)
{
    constexpr int handle = 16;
    return QGuiApplication::screenAt({geometry.center().x(), geometry.top() + handle}) != nullptr;
}

} // namespace

QByteArray ExEditorRegion::saveLayout() const
{
    RegionLayout layout;
    QSet<QString> saved;
    // What has no name of its own cannot be found again.
    const auto isSaved = [&saved](const ExEditor *editor) {
        const QString name = editor->name();
        const bool isNew = !name.isEmpty() && !saved.contains(name);
        saved.insert(name);
        return isNew;
    };
    d->splitter->refresh(); // Tabs may have come or gone that it has not laid out yet.
    const QList<int> sizes = d->splitter->sizes();
    const bool hasSizes
        = std::any_of(sizes.cbegin(), sizes.cend(), [](int size) { return size > 0; });
    for (int i = 0; i < subRegionCount(); ++i) {
        const ExEditorContainer *const container = d->containers.at(i);
        RegionLayout::SubRegion subRegion;
        for (const ExEditor *editor : container->editors()) {
            if (isSaved(editor)) {
                subRegion.editors.append(editor->name());
            }
        }
        const ExEditor *const current = container->currentEditor();
        subRegion.current = current == nullptr ? QString() : current->name();
        subRegion.size = hasSizes && container->count() > 0 ? sizes.at(i) : container->m_extent;
        layout.subRegions.append(subRegion);
    }
    for (const Private::Closed &place : d->closed) {
        if (isSaved(place.editor)) {
            layout.closed.append({place.editor->name(), place.subRegion});
        }
    }
    for (const ExEditor *editor : d->members) {
        if (editor->isFloating() && !editor->isDisabled() && isSaved(editor)) {
            const QRect geometry = editor->floater()->geometry();
            layout.floating.append(
                {editor->name(), editor->subRegionIndex(), geometry, relativeGeometry(geometry)});
        }
    }
    return layout.toBytes();
}

bool ExEditorRegion::restoreLayout(const QByteArray &layout)
{
    const std::optional<RegionLayout> read = RegionLayout::fromBytes(layout);
    if (!read.has_value()) {
        return false;
    }
    setSubRegionCount(static_cast<int>(read->subRegions.size()));
    restoreDocked(*read);
    restoreOthers(*read);
    restoreSizes(*read); // Last: the others may have had tabs until now.
    return true;
}

/// The editor of the region that has this name, also one that is not registered; else any that is.
ExEditor *ExEditorRegion::editorNamed(const QString &name) const
{
    const auto found = std::find_if(d->members.cbegin(), d->members.cend(),
        [&name](const ExEditor *editor) { return editor->name() == name; });
    return found == d->members.cend() ? ExEditor::getEditor(name.toLocal8Bit().constData())
                                      : *found;
}

void ExEditorRegion::restoreDocked(const RegionLayout &layout)
{
    for (int i = 0; i < subRegionCount(); ++i) {
        const RegionLayout::SubRegion &wanted = layout.subRegions.at(i);
        int position = 0;
        for (const QString &name : wanted.editors) {
            if (insertEditor(editorNamed(name), i, position)) {
                ++position;
            }
        }
        if (!wanted.current.isEmpty()) {
            activateEditor(editorNamed(wanted.current), i);
        }
    }
}

void ExEditorRegion::restoreSizes(const RegionLayout &layout)
{
    QList<int> sizes;
    for (int i = 0; i < subRegionCount(); ++i) {
        const int size = layout.subRegions.at(i).size;
        d->containers.at(i)->m_extent = size;
        sizes.append(size < 0 ? usualExtent(i) : size);
    }
    d->splitter->setSizes(sizes);
}

void ExEditorRegion::restoreOthers(const RegionLayout &layout)
{
    for (const RegionLayout::Closed &place : layout.closed) {
        if (ExEditor *const editor = editorNamed(place.editor)) {
            retire(*editor, place.subRegion);
        }
    }
    for (const RegionLayout::Floating &place : layout.floating) {
        ExEditor *const editor = editorNamed(place.editor);
        if (!addEditor(editor, place.subRegion)) {
            continue;
        }
        editor->setRelativeFloatingGeometry(place.relative);
        if (isReachable(place.geometry)) {
            editor->setAbsoluteFloatingGeometry(place.geometry);
        }
        editor->show(true);
    }
}
