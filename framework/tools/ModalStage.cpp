#include "framework/tools/ModalStage.h"

#include "framework/notification/ExNotifiables.h"
#include "framework/tools/ActiveViewer.h"
#include "framework/tools/ExContextToolBar.h"
#include "framework/tools/ExModal.h"
#include "framework/tools/ExToolGroup.h"
#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExViewerManager.h"

#include <QTimer>

#include <algorithm>
#include <iterator>

namespace {

bool contains(const std::vector<ExModal *> &tools, const ExModal *tool)
{
    return std::find(tools.begin(), tools.end(), tool) != tools.end();
}

/// The manager's viewers, and the active one also when it is not among them.
std::vector<McHandle<ExBaseViewer>> allViewers()
{
    std::vector<McHandle<ExBaseViewer>> viewers;
    const ExViewerManager *const manager = ExViewerManager::instancePointer();
    if (manager == nullptr) {
        return viewers;
    }
    for (int i = 0; i < manager->numViewers(); ++i) {
        viewers.emplace_back(manager->viewer(i));
    }
    const McHandle<ExBaseViewer> active(manager->activeViewer());
    if (active && manager->viewerIndex(active) < 0) {
        viewers.push_back(active);
    }
    return viewers;
}

bool isOnShow(const ExBaseViewer *viewer)
{
    const ExViewerManager *const manager = ExViewerManager::instancePointer();
    return manager != nullptr && viewer != nullptr
        && (manager->viewerIndex(viewer) >= 0 || ExViewerManager::isActiveViewer(*viewer));
}

ExContextToolBar *contextToolBar()
{
    ExViewerManager *const manager = ExViewerManager::instancePointer();
    return manager == nullptr ? nullptr : manager->contextToolBar();
}

/// The hint of the tool that is asked first on the active viewer.
QString currentHint()
{
    const McHandle<ExBaseViewer> viewer = activeViewer();
    if (!viewer || viewer->modalTools().isEmpty()) {
        return {};
    }
    const ExModal *const real = viewer->modalTools().last()->realTool(viewer);
    return real == nullptr ? QString() : real->displayHint(viewer);
}

/// Tells the stage what becomes of viewers.
class ViewerWatch : public ExNotifiable
{
public:
    void notified(const ExNotification &notification) override
    {
        ModalStage &stage = ModalStage::instance();
        stage.join(notification.viewer());
        stage.beginWaiting();
        // When all have been told of another active viewer, the bar floats in it.
        if (ExContextToolBar *const bar = contextToolBar()) {
            QTimer::singleShot(0, bar, [] { ModalStage::instance().refreshToolBar(); });
        }
    }
    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotifications(this, ExNotification::ACTIVE_VIEWER_CHANGED,
            ExNotification::VIEWER_CREATED, ExNotification::VIEWER_VOLUME_CHANGED,
            ExNotification::VIEWER_TYPE_CHANGED, ExNotification::VIEWER_SUBTYPE_CHANGED,
            ExNotification::NONE);
    }
};

} // namespace

ModalStage &ModalStage::instance()
{
    static auto *const stage = new ModalStage;
    return *stage;
}

void ModalStage::toolMade()
{
    if (m_numTools++ == 0) {
        m_watch = std::make_unique<ViewerWatch>();
    }
}

void ModalStage::toolGone(ExModal *tool)
{
    leave(tool);
    removeSubTools(tool);
    if (--m_numTools == 0) {
        m_watch.reset();
    }
}

bool ModalStage::isAtWork(const ExModal *tool) const
{
    return contains(m_atWork, tool);
}

void ModalStage::enter(ExModal *tool)
{
    std::erase(m_waiting, tool);
    m_atWork.push_back(tool);
    for (const McHandle<ExBaseViewer> &viewer : allViewers()) {
        if (isAtWork(tool)) {
            place(tool, *viewer);
        }
    }
    retireDisplaced();
}

void ModalStage::wait(ExModal *tool)
{
    if (!contains(m_waiting, tool)) {
        m_waiting.push_back(tool);
    }
}

bool ModalStage::leave(ExModal *tool)
{
    std::erase(m_waiting, tool);
    std::erase(m_displaced, tool);
    const bool wasAtWork = std::erase(m_atWork, tool) > 0;
    ExBaseViewer::removeModalToolEverywhere(tool);
    return wasAtWork;
}

void ModalStage::join(ExBaseViewer *viewer)
{
    if (!isOnShow(viewer)) {
        return;
    }
    const McHandle<ExBaseViewer> held(viewer);
    // In the order of activation, so that of two exclusive tools the later one stays.
    for (ExModal *const tool : std::vector<ExModal *>(m_atWork)) {
        if (isAtWork(tool)) {
            place(tool, *viewer);
        }
    }
    retireDisplaced();
}

void ModalStage::place(ExModal *tool, ExBaseViewer &viewer)
{
    if (tool->realTool(&viewer) == nullptr) {
        viewer.removeModalTool(tool);
        return;
    }
    if (tool->isExclusive(&viewer)) {
        const McDArray<ExModal *> others = viewer.modalTools();
        for (ExModal *const other : others) {
            if (other != tool && other->isExclusive(&viewer)
                && other->stateForUse() == tool->stateForUse()) {
                viewer.removeModalTool(other);
                m_displaced.push_back(other);
            }
        }
    }
    viewer.appendModalTool(tool);
}

void ModalStage::retireDisplaced()
{
    // A tool that is switched off may have others leave, and destroy them.
    while (!m_displaced.empty()) {
        ExModal *const tool = m_displaced.back();
        std::erase(m_displaced, tool);
        if (isAtWork(tool) && !ExBaseViewer::hasModalToolAnywhere(tool)) {
            tool->setActive(false);
        }
    }
}

void ModalStage::beginWaiting()
{
    while (!m_waiting.empty() && activeViewer() != nullptr) {
        ExModal *const tool = m_waiting.front();
        m_waiting.erase(m_waiting.begin());
        tool->begin();
    }
}

void ModalStage::showHint()
{
    if (ExContextToolBar *const bar = contextToolBar()) {
        const QString hint = currentHint();
        bar->setDisplayHint(hint);
        // Without sub-tools the bar shows for the hint alone.
        bar->setVisible(!bar->isEmpty() || !hint.isEmpty());
    }
}

void ModalStage::removeSubTools(const ExModal *tool)
{
    const auto shown = m_subTools.find(tool);
    if (shown == m_subTools.end()) {
        return;
    }
    const std::vector<McHandle<ExTool>> members = shown->second;
    m_subTools.erase(shown);
    if (ExContextToolBar *const bar = contextToolBar()) {
        bar->removeSubTools(members);
    }
}

void ModalStage::refreshToolBar()
{
    removeLeftSubTools();
    for (ExModal *const tool : std::vector<ExModal *>(m_atWork)) {
        // The bar asks the client for actions: it may switch tools off meanwhile.
        ExContextToolBar *const bar = contextToolBar();
        const McHandle<ExModal> held = isAtWork(tool) ? keep(tool) : nullptr;
        const auto *const group = dynamic_cast<ExToolGroup *>(held.get());
        if (bar != nullptr && group != nullptr) {
            m_subTools[tool] = group->getTools();
            bar->appendSubTools(held);
        }
    }
    showHint();
}

void ModalStage::removeLeftSubTools()
{
    std::vector<McHandle<ExTool>> left;
    for (auto &[tool, shown] : m_subTools) {
        const auto *const group = dynamic_cast<const ExToolGroup *>(tool);
        if (group == nullptr) {
            continue;
        }
        const std::vector<McHandle<ExTool>> &members = group->getTools();
        std::copy_if(shown.begin(), shown.end(), std::back_inserter(left),
            [&members](const McHandle<ExTool> &each) {
                return std::find(members.begin(), members.end(), each) == members.end();
            });
    }
    ExContextToolBar *const bar = contextToolBar();
    if (bar != nullptr && !left.empty()) {
        bar->removeSubTools(left);
    }
}

McHandle<ExModal> ModalStage::keep(ExModal *tool)
{
    return tool->references() > 0 ? tool : nullptr;
}
