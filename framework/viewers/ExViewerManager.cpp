#include "framework/viewers/ExViewerManager.h"

#include "framework/notification/ExNotifiable.h"
#include "framework/notification/ExNotifiables.h"
#include "framework/tools/ExModal.h"
#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExScreen.h"
#include "platform/render/KxEngine.h"
// The manager owns the tool bar that follows the active viewer.
#include "framework/tools/ExContextToolBar.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <utility>

class ExViewerManagerPrivate
{
public:
    /// Takes a viewer off the list, and its name from its render widget; whether it was on the
    /// list.
    bool takeOut(const ExBaseViewer &viewer);

    McDArray<McHandle<ExBaseViewer>> viewers;
    McDArray<McHandle<ExBaseViewer>> unused;
    QPointer<ExContextToolBar> contextToolBar;
};

namespace {

ExViewerManager *theInstance = nullptr;

/// One for the process, as a plain pointer that counts as a reference.
ExBaseViewer *theActiveViewer = nullptr;

const QString renderWidgetName = QStringLiteral("RenderWidget_%1");

/// The number in an object name of the form "RenderWidget_%1"; 0 for other names.
int numberInName(const QString &name)
{
    return name.section(QLatin1Char('_'), 1, 1).toInt();
}

QString nextRenderWidgetName(const McDArray<McHandle<ExBaseViewer>> &viewers)
{
    int highest = 0;
    for (const McHandle<ExBaseViewer> &viewer : viewers) {
        if (const QWidget *const widget = viewer->renderWidget()) {
            highest = std::max(highest, numberInName(widget->objectName()));
        }
    }
    return renderWidgetName.arg(highest + 1);
}

} // namespace

bool ExViewerManagerPrivate::takeOut(const ExBaseViewer &viewer)
{
    if (QWidget *const widget = viewer.renderWidget()) {
        widget->setObjectName(QString());
    }
    bool wasThere = false;
    for (int i = viewers.size(); i-- > 0;) {
        if (viewers[i].get() == &viewer) {
            viewers.remove(i);
            wasThere = true;
        }
    }
    return wasThere;
}

ExViewerManager::ExViewerManager()
    : d(std::make_unique<ExViewerManagerPrivate>())
{
    theInstance = this;
}

ExViewerManager::~ExViewerManager()
{
    if (theInstance == this) {
        theInstance = nullptr;
        if (ExBaseViewer *const active = std::exchange(theActiveViewer, nullptr)) {
            active->unref();
        }
    }
    delete d->contextToolBar;
    d->unused.clear();
    d->viewers.clear();
}

ExViewerManager &ExViewerManager::getInstance()
{
    return *theInstance;
}

ExViewerManager *ExViewerManager::instancePointer()
{
    return theInstance;
}

int ExViewerManager::numViewers() const
{
    return d->viewers.size();
}

ExBaseViewer *ExViewerManager::viewer(int index) const
{
    return d->viewers[index];
}

int ExViewerManager::viewerIndex(const ExBaseViewer *viewer) const
{
    const auto found = std::find_if(d->viewers.begin(), d->viewers.end(),
        [viewer](const McHandle<ExBaseViewer> &handle) { return handle.get() == viewer; });
    return found == d->viewers.end() ? -1 : static_cast<int>(found - d->viewers.begin());
}

void ExViewerManager::sortViewers(const LessThan &isLess)
{
    d->viewers.sort([&isLess](const auto &a, const auto &b) -> bool { return isLess(a, b); });
}

void ExViewerManager::addViewer(ExBaseViewer *viewer, const McBox2f &box, bool place)
{
    if (viewer == nullptr) {
        return;
    }
    const McHandle<ExBaseViewer> handle(viewer);
    if (ExScreen *const screen = place ? screenForViewer(viewer) : nullptr) {
        screen->addWidget(viewer, box);
    }
    if (QWidget *const widget = viewer->renderWidget()) {
        widget->setObjectName(nextRenderWidgetName(d->viewers));
    }
    d->viewers.append(handle);
    ExModal::joinViewer(viewer);
}

void ExViewerManager::removeViewer(ExBaseViewer *viewer)
{
    if (viewer == nullptr) {
        return;
    }
    const McHandle<ExBaseViewer> held(viewer);
    if (d->takeOut(*viewer) && retire(viewer, false)) {
        viewer->putAside(false);
    }
}

void ExViewerManager::removeAllViewers()
{
    if (d->contextToolBar != nullptr) {
        d->contextToolBar->removeAll();
    }
    while (!d->viewers.isEmpty()) {
        const McHandle<ExBaseViewer> viewer = d->viewers.last();
        d->takeOut(*viewer);
        const bool isKept = retire(viewer, true);
        viewer->putAside(!isKept);
    }
}

bool ExViewerManager::retire(ExBaseViewer *viewer, bool preferredFirst)
{
    if (ExScreen *const screen = screenForViewer(viewer)) {
        screen->removeWidget(viewer);
    }
    if (d->contextToolBar != nullptr) {
        d->contextToolBar->detachFrom(viewer->renderWidget());
    }
    if (!viewer->isReusable()) {
        ExNotifiables::getInstance().removeDelayedNotifications(viewer);
        return false;
    }
    resetDisplaySetAndImageSet(viewer);
    const bool isFirst = preferredFirst && viewer->isPreferredForReuse();
    d->unused.insert(isFirst ? 0 : d->unused.size(), viewer);
    return true;
}

ExContextToolBar *ExViewerManager::contextToolBar()
{
    if (d->contextToolBar == nullptr) {
        d->contextToolBar = new ExContextToolBar;
    }
    return d->contextToolBar;
}

ExBaseViewer *ExViewerManager::activeViewer() const
{
    return theActiveViewer;
}

bool ExViewerManager::isActiveViewer(const ExBaseViewer &viewer)
{
    return &viewer == theActiveViewer;
}

void ExViewerManager::setActiveViewer(ExBaseViewer *viewer)
{
    const McHandle<ExBaseViewer> held(viewer);
    KxEngine::instance().renderQueue().setPreferredRenderer(nullptr);
    if (viewer != theActiveViewer) {
        changeActiveViewer(viewer);
    }
    if (viewer != nullptr) {
        viewer->activated();
    }
}

void ExViewerManager::changeActiveViewer(ExBaseViewer *viewer)
{
    // The previous viewer stays alive until everybody has been told.
    const McHandle<ExBaseViewer> previous(theActiveViewer);
    theActiveViewer = viewer;
    if (viewer != nullptr) {
        viewer->ref();
    }
    if (previous) {
        previous->unref();
    }
    attachContextToolBar(nullptr);
    ExNotifiable::notify(
        ExNotification(ExNotification::ACTIVE_VIEWER_CHANGED, viewer, nullptr, previous.get()));
    // Who was told may have made yet another viewer the active one, which has the bar by now.
    if (viewer == theActiveViewer) {
        attachContextToolBar(viewer == nullptr ? nullptr : viewer->renderWidget());
    }
}

void ExViewerManager::attachContextToolBar(QWidget *widget)
{
    // A manager may outlive the application object; then no widget can be made any more.
    if (QCoreApplication::instance() != nullptr && !QCoreApplication::closingDown()) {
        contextToolBar()->attachTo(widget, Qt::BottomRightCorner);
    }
}

void ExViewerManager::cleanupViewers()
{
    KxRenderQueue &queue = KxEngine::instance().renderQueue();
    const McDArray<McHandle<ExBaseViewer>> viewers = d->viewers; // Hooks may change the list.
    for (const McHandle<ExBaseViewer> &viewer : viewers) {
        queue.removeRequests(viewer);
    }
    for (const McHandle<ExBaseViewer> &viewer : viewers) {
        viewer->terminateRendering();
    }
    for (const McHandle<ExBaseViewer> &viewer : viewers) {
        viewer->cleanUpNodes();
    }
}

void ExViewerManager::clearCachedImages()
{
    const McDArray<McHandle<ExBaseViewer>> viewers = d->viewers; // Hooks may change the lists.
    const McDArray<McHandle<ExBaseViewer>> unused = d->unused;
    for (int i = viewers.size(); i-- > 0;) {
        viewers[i]->clearCachedImages();
    }
    for (int i = unused.size(); i-- > 0;) {
        unused[i]->clearCachedImages();
    }
}

void ExViewerManager::reattachViewers()
{
    McDArray<McHandle<ExBaseViewer>> viewers = d->viewers; // Hooks may change the lists.
    viewers.append(d->unused);
    for (const McHandle<ExBaseViewer> &viewer : viewers) {
        viewer->reattach();
    }
}

void ExViewerManager::deleteUnusedViewers()
{
    // A viewer may look at the manager while it goes.
    McDArray<McHandle<ExBaseViewer>> unused;
    unused.swap(d->unused);
}

McHandle<ExBaseViewer> ExViewerManager::unusedViewer(Ex::ViewerType type)
{
    for (int i = 0; i < d->unused.size(); ++i) {
        McHandle<ExBaseViewer> viewer = d->unused[i];
        if (viewer->viewerType() == type && !viewer->isOffScreen()) {
            d->unused.remove(i);
            viewer->clearCachedImages();
            viewer->takenBack();
            return viewer;
        }
    }
    return {};
}

void ExViewerManager::resetDisplaySetAndImageSet(ExBaseViewer *viewer)
{
    viewer->setDisplaySetID(std::string());
    viewer->setBackgroundColor(0, 0, 0, 1);
}
