#include "framework/editors/ExEditor.h"

#include "framework/application/ExApplication.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorFloater.h"
#include "framework/editors/ExEditorRegion.h"
#include "framework/session/ExSerializable.h"
#include "platform/rights/UserFunctionPermissions.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <utility>

namespace {

struct RegistryEntry
{
    std::string name;
    QPointer<ExEditor> editor;
    ExEditor::Factory factory = nullptr;
};

std::map<std::string, RegistryEntry> &registry()
{
    // Never destroyed: plug-ins register from static initializers and editors may be static.
    static auto *const entries = new std::map<std::string, RegistryEntry>;
    return *entries;
}

bool mayBeUsed(const char *name)
{
    return name == nullptr
        || Zel::UserFunctionPermissions::instance().haveEditorPermission(name, true);
}

QWidget *dialogParent()
{
    return ExApplication::hasInstance() ? ExApplication::instance().dialogParent() : nullptr;
}

QRect availableArea(const QWidget *window)
{
    const QScreen *const screen = window == nullptr ? nullptr : window->screen();
    const QScreen *const used = screen == nullptr ? QGuiApplication::primaryScreen() : screen;
    return used == nullptr ? QRect() : used->availableGeometry();
}

int pixels(int extent, float fraction)
{
    return qRound(static_cast<double>(extent) * static_cast<double>(fraction));
}

void reportSize(const char *what, const QSize &size)
{
    std::fprintf(stderr, "ExEditor: %s: w:%d h:%d\n", what, size.width(), size.height());
}

} // namespace

ExEditor::ExSupportInterface::~ExSupportInterface() = default;

ExEditor::Layout::~Layout() = default;

void ExEditor::Layout::setStacking(Qt::Orientation /*stacking*/) { }

class ExEditor::Private
{
public:
    QPointer<QWidget> widget;
    QPointer<ExEditorRegion> region;
    int subRegion = -1;
    QRect absoluteGeometry;
    McBox2f relativeGeometry;
    QPointer<QWidget> floater;
    int floaterMargin = 6;
    bool supported = false;
};

ExEditor::ExEditor(QWidget *widget, const char *name)
    : d(std::make_unique<Private>())
{
    d->widget = widget;
    if (widget == nullptr) {
        return;
    }
    if (name != nullptr) {
        widget->setObjectName(QString::fromLocal8Bit(name));
    }
    widget->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(widget, SIGNAL(customContextMenuRequested(const QPoint &)), this,
        SLOT(slotCustomContextMenuRequested(const QPoint &)));
}

ExEditor::~ExEditor()
{
    resetEditorRegion();
    dockFloater(true);
}

ExSerializable *ExEditor::serializable() const
{
    return dynamic_cast<ExSerializable *>(d->widget.data());
}

ExEditor::Layout *ExEditor::layout() const
{
    return nullptr;
}

QWidget *ExEditor::widgetForMonitor(int /*monitor*/) const
{
    return d->widget;
}

QWidget *ExEditor::takeWidget()
{
    ExEditorContainer *const container = editorContainer();
    return container == nullptr ? widgetForMonitor(0) : container->takeWidget(this);
}

void ExEditor::registerEditor(const char *name, Factory factory)
{
    if (name != nullptr && *name != '\0') {
        registry()[name] = {name, nullptr, factory};
    }
}

ExEditor *ExEditor::getEditor(const char *name)
{
    if (name == nullptr || *name == '\0' || !mayBeUsed(name)) {
        return nullptr;
    }
    const auto found = registry().find(name);
    if (found == registry().end()) {
        return nullptr;
    }
    RegistryEntry &entry = found->second;
    if (entry.editor == nullptr && entry.factory != nullptr) {
        entry.editor = entry.factory();
        if (entry.editor != nullptr) {
            entry.editor->setObjectName(QString::fromLocal8Bit(entry.name));
        }
    }
    return entry.editor;
}

void ExEditor::getEditorList(QStringList &names)
{
    names.clear();
    for (const auto &[name, entry] : registry()) {
        if (mayBeUsed(name.c_str())) {
            names.append(QString::fromLocal8Bit(name));
        }
    }
}

QList<void (*)()> &ExEditor::initCallbackList()
{
    static auto *const callbacks = new QList<void (*)()>;
    return *callbacks;
}

QString ExEditor::windowTitle() const
{
    const QWidget *const widget = widgetForMonitor(0);
    return widget == nullptr ? QString() : widget->windowTitle();
}

ExEditorRegion *ExEditor::editorRegion() const
{
    return d->region;
}

int ExEditor::subRegionIndex() const
{
    return d->subRegion;
}

ExEditorContainer *ExEditor::editorContainer() const
{
    return d->region == nullptr ? nullptr : d->region->editorContainer(d->subRegion);
}

bool ExEditor::isDisabled() const
{
    return d->subRegion == -1;
}

bool ExEditor::isFloating() const
{
    return d->floater != nullptr;
}

QWidget *ExEditor::floater() const
{
    return d->floater;
}

void ExEditor::setAbsoluteFloatingGeometry(const QRect &geometry)
{
    d->absoluteGeometry = geometry;
}

void ExEditor::setRelativeFloatingGeometry(const McBox2f &geometry)
{
    d->relativeGeometry = geometry;
    d->absoluteGeometry = QRect();
}

void ExEditor::setSupportedFlag(bool supported)
{
    d->supported = supported;
}

bool ExEditor::supports(const ExHangingProtocol *protocol) const
{
    if (!mayBeUsed(objectName().toLocal8Bit().constData())) {
        return false;
    }
    const auto *const own = dynamic_cast<ExSupportInterface *>(widgetForMonitor(0));
    return own == nullptr ? d->supported : own->supports(protocol);
}

int ExEditor::minimumSize(Qt::Orientation stacking) const
{
    const QWidget *const widget = widgetForMonitor(0);
    if (widget == nullptr) {
        return 0;
    }
    // Crossed on purpose: along the stacking the splitter sees to it that each editor has its
    // room; what regions ask for is how thick they must be, across it.
    const QSize hint = widget->minimumSizeHint();
    return stacking == Qt::Horizontal ? hint.height() : hint.width();
}

bool ExEditor::show(bool floating)
{
    if (!floating) {
        return activateDocked();
    }
    // People who report a panel that does not fit on a screen are asked for these lines.
    if (const QWidget *const widget = widgetForMonitor(0)) {
        reportSize("minimumSize", widget->minimumSize());
        reportSize("minimumSizeHint", widget->minimumSizeHint());
        reportSize("sizeHint", widget->sizeHint());
    }
    if (d->floater == nullptr) {
        floatWidget();
        return true;
    }
    d->floater->show();
    d->floater->raise();
    return true;
}

bool ExEditor::activateDocked()
{
    ExEditorContainer *const container = editorContainer();
    if (container == nullptr || !container->acceptsEditor(this)) {
        return false;
    }
    if (container->currentEditor() != this) {
        container->setCurrentEditor(this);
    }
    return true;
}

void ExEditor::floatWidget()
{
    const QSize size = presentSize();
    if (d->region != nullptr) {
        d->region->removeEditor(this, d->subRegion);
    }
    auto *const window = new ExEditorFloater(*this, d->floaterMargin, dialogParent());
    d->floater = window;
    if (Layout *const arrangement = layout()) {
        arrangement->update();
    }
    window->setContent(takeWidget(), windowTitle());
    const QRect geometry = floatingGeometry(size);
    if (geometry.isValid()) {
        window->setGeometry(geometry);
    }
    window->show();
}

/// What the user sees it in; empty for one that was never seen.
QSize ExEditor::presentSize() const
{
    const QWidget *const widget = widgetForMonitor(0);
    const ExEditorContainer *const container = editorContainer();
    if (container != nullptr && container->contains(this) && container->isVisible()) {
        return container->currentWidget()->size();
    }
    const bool hasSize = widget != nullptr && widget->testAttribute(Qt::WA_Resized);
    return hasSize ? widget->size() : QSize();
}

QRect ExEditor::floatingGeometry(const QSize &widgetSize) const
{
    const QRect area = availableArea(dialogParent());
    if (d->absoluteGeometry.isValid() || area.isEmpty()) {
        return d->absoluteGeometry;
    }
    const QSize least = d->floater->minimumSizeHint();
    const McBox2f &box = d->relativeGeometry;
    QRect geometry;
    if (box.isEmpty()) {
        const QSize content = widgetSize.isEmpty() ? d->floater->sizeHint() : widgetSize;
        geometry.setSize(content.expandedTo(least).boundedTo(area.size()));
        geometry.moveCenter(area.center());
        return geometry;
    }
    const QSize size(pixels(area.width(), box.width()), pixels(area.height(), box.height()));
    geometry.setSize(size.expandedTo(least).boundedTo(area.size()));
    const int x = area.left() + pixels(area.width(), box.xMin());
    const int y = area.top() + pixels(area.height(), box.yMin());
    geometry.moveTo(std::clamp(x, area.left(), area.right() + 1 - geometry.width()),
        std::clamp(y, area.top(), area.bottom() + 1 - geometry.height()));
    return geometry;
}

void ExEditor::dockFloater(bool close)
{
    if (close) {
        // Forgotten first: a window that is closed while it is the editor's docks the panel.
        const QPointer<QWidget> window = std::exchange(d->floater, nullptr);
        if (window != nullptr) {
            window->close();
        }
        return;
    }
    if (ExEditorRegion *const region = d->region) {
        region->addEditor(this, d->subRegion);
        region->activateEditor(this, d->subRegion);
    }
    d->floater = nullptr;
}

void ExEditor::reset()
{
    dockFloater(true);
    d->absoluteGeometry = QRect();
    resetEditorRegion();
}

void ExEditor::setEditorRegion(ExEditorRegion *region, int subRegion)
{
    if (region == d->region && subRegion == d->subRegion) {
        return;
    }
    if (region != d->region) {
        if (d->region != nullptr) {
            d->region->removeMember(*this);
        }
        if (region != nullptr) {
            region->addMember(*this);
        }
    }
    d->region = region;
    d->subRegion = subRegion;
}

void ExEditor::windowGone(const QWidget *window)
{
    if (d->floater == window) {
        d->floater = nullptr;
    }
}

void ExEditor::slotCustomContextMenuRequested(const QPoint &position)
{
    if (!ExApplication::hasInstance()) {
        return;
    }
    const std::unique_ptr<QAction> help(
        ExApplication::instance().createShowHelpAction(QStringLiteral("Toolcard.") + name()));
    const QWidget *const widget = widgetForMonitor(0);
    if (help == nullptr || widget == nullptr) {
        return;
    }
    QMenu menu;
    menu.addAction(help.get());
    menu.exec(widget->mapToGlobal(position));
}
