#include "framework/tools/ExPopupUI.h"

#include "framework/tools/ActiveViewer.h"
#include "framework/tools/ExDecoration.h"
#include "framework/tools/ExTool.h"
// The face of the button comes from the client's decoration provider.
#include "framework/application/ExApplication.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

namespace {

constexpr QSize faceSize(32, 32);

QIcon decorationIcon(const QString &key)
{
    const QByteArray bytes = key.toUtf8();
    const ExDecoration *const decoration = ExApplication::hasInstance()
        ? ExApplication::instance().decoration(bytes.constData())
        : nullptr;
    return decoration == nullptr ? QIcon() : decoration->icon(bytes.constData());
}

/// The disabled look for a button that is enabled.
QIcon greyed(const QIcon &icon)
{
    const QPixmap pixmap = icon.pixmap(faceSize, QIcon::Disabled);
    QIcon result;
    result.addPixmap(pixmap, QIcon::Normal, QIcon::On);
    result.addPixmap(pixmap, QIcon::Normal, QIcon::Off);
    return result;
}

} // namespace

ExPopupUI::ExPopupUI() = default;

ExPopupUI *ExPopupUI::create(ExTool &tool)
{
    auto *const created = new ExPopupUI;
    // The tools of the group have actions of their own, which the hot keys belong to.
    created->setLocalShortCut(tool.getUI() != nullptr);
    if (auto *const owner = qobject_cast<QWidget *>(created->parent())) {
        owner->addAction(created);
    }
    created->setTool(&tool);
    created->update(nullptr);
    return created;
}

void ExPopupUI::update(ExBaseViewer *viewer)
{
    const ExTool *const tool = getTool();
    if (tool == nullptr) {
        return;
    }
    const QSignalBlocker blocker(this);
    const QIcon face = decorationIcon(objectName());
    if (tool->isEnabled(viewer == nullptr ? activeViewer() : viewer)) {
        setIcon(face);
        setChecked(tool->isActive());
    } else {
        setIcon(greyed(face));
    }
    setEnabled(true);
}

void ExPopupUI::actionToggled(bool on)
{
    if (isToolUnusable()) {
        openMenuInstead();
    } else {
        ExActionUI::actionToggled(on);
    }
}

void ExPopupUI::actionTriggered(bool on)
{
    if (isToolUnusable()) {
        openMenuInstead();
    } else {
        ExActionUI::actionTriggered(on);
    }
}

bool ExPopupUI::isToolUnusable() const
{
    return getTool() == nullptr || !getTool()->supportsViewer(activeViewer());
}

void ExPopupUI::openMenuInstead()
{
    {
        const QSignalBlocker blocker(this);
        setChecked(false);
    }
    const QPoint pointer = QCursor::pos();
    auto *const button = qobject_cast<QToolButton *>(QApplication::widgetAt(pointer));
    // While the menu is open anything may go, this action too: nothing is touched afterwards.
    if (button != nullptr && button->defaultAction() == this) {
        button->showMenu();
    } else if (menu() != nullptr) {
        menu()->exec(pointer);
    }
}
