#include "framework/tools/ExTool.h"

#include "framework/tools/ExHotKeyEvent.h"
#include "framework/tools/ExToolGroup.h"
#include "framework/tools/ExToolLogger.h"
#include "framework/tools/ExToolUI.h"
#include "framework/viewers/ExBaseViewer.h"
#include "platform/render/KxImageSeries.h"
#include "platform/rights/UserFunctionPermissions.h"
#include "platform/toolkit/QxWildcard.h"
#include "platform/util/McHandle.h"

#include <QFile>

#include <algorithm>
#include <map>

namespace {

/// How a factory entry came about; only a menu tool is one, an entry made by a tool's constructor
/// never is.
enum MenuMark : int { MenuTool = 0, NoMenuTool = 1, ImplicitEntry = 2 };

struct FactoryEntry
{
    ExTool::Factory factory = nullptr;
    int argument = 0;
    int menuMark = ImplicitEntry;
};

// Both never destroyed: tools may be static objects.

std::map<std::string, ExTool *> &liveTools()
{
    static auto *const tools = new std::map<std::string, ExTool *>;
    return *tools;
}

std::map<std::string, FactoryEntry> &factories()
{
    static auto *const entries = new std::map<std::string, FactoryEntry>;
    return *entries;
}

FactoryEntry *findFactory(const char *key)
{
    const auto found = key == nullptr || *key == '\0' ? factories().end() : factories().find(key);
    return found == factories().end() ? nullptr : &found->second;
}

template <typename T>
void appendOnce(std::vector<T *> &list, T *value)
{
    if (value != nullptr && std::find(list.begin(), list.end(), value) == list.end()) {
        list.push_back(value);
    }
}

} // namespace

ExTool::ExTool(const char *name)
    : m_decorationKey(name == nullptr ? "" : name)
{
    liveTools().emplace(m_decorationKey, this);
    if (!m_decorationKey.empty()) {
        factories().try_emplace(m_decorationKey);
    }
}

ExTool::~ExTool()
{
    const auto found = liveTools().find(m_decorationKey);
    if (found != liveTools().end() && found->second == this) {
        liveTools().erase(found);
    }
}

void ExTool::notified(const ExNotification & /*notification*/) { }

bool ExTool::supports(Ex::ViewerType /*type*/) const
{
    return true;
}

bool ExTool::supportsViewer(const ExBaseViewer *viewer) const
{
    const KxImageSeries *const imageSet = viewer == nullptr ? nullptr : viewer->imageSet(0);
    return imageSet != nullptr && imageSet->numVolumes() > 0 && viewer->acceptsImageSet(*imageSet)
        && supports(viewer->viewerType());
}

bool ExTool::isStandard() const
{
    return false;
}

bool ExTool::isEnabled(const ExBaseViewer *viewer) const
{
    return supportsViewer(viewer);
}

bool ExTool::isActivatable() const
{
    return true;
}

bool ExTool::isActive() const
{
    return m_active;
}

bool ExTool::setActive(bool on)
{
    if (!isActivatable()) {
        return false;
    }
    // Those that are told may let the tool go. One that nobody holds belongs to somebody who
    // deletes it: a handle would be the first and the last.
    const McHandle<ExTool> held(references() > 0 ? this : nullptr);
    if (isActive() != on) {
        m_active = on;
        if (on) {
            bringUpUI();
            checkExclusiveGroups();
        }
    }
    updateUI(nullptr);
    return true;
}

bool ExTool::onHotKey(const ExHotKeyEvent &event)
{
    if (!supportsViewer(event.viewer)) {
        return false;
    }
    if (isActivatable()) {
        ExToolLogger::logToggle(this, !isActive());
        setActive(!isActive());
    } else {
        ExToolLogger::logTrigger(this);
        setActive(true);
    }
    return true;
}

bool ExTool::isHotKeyGlobal() const
{
    return true;
}

bool ExTool::needsExclusiveClickForActivation() const
{
    return false;
}

int ExTool::stateForUse() const
{
    return 0;
}

ExToolUI *ExTool::getUI() const
{
    return m_uis.empty() ? nullptr : m_uis.front();
}

void ExTool::updateUI(ExBaseViewer *viewer) const
{
    // By index: a binding that is updated may add or remove others.
    for (std::size_t i = 0; i < m_uis.size(); ++i) {
        m_uis[i]->update(viewer);
    }
}

void ExTool::bringUpUI() const
{
    for (std::size_t i = 0; i < m_groups.size(); ++i) {
        const ExToolGroup &group = *m_groups[i];
        if (group.getGroupUI() != nullptr && group.getBringUp() && !group.getToolBarFixed(*this)) {
            group.getGroupUI()->setTool(const_cast<ExTool *>(this));
        }
    }
}

void ExTool::checkExclusiveGroups()
{
    // Switching a tool off may change the groups and destroy them, and let the tool go.
    const auto isIn = [this](const ExToolGroup *group) {
        return std::find(m_groups.begin(), m_groups.end(), group) != m_groups.end();
    };
    for (const ExToolGroup *const group : std::vector<ExToolGroup *>(m_groups)) {
        if (!isIn(group) || !group->getExclusive()) {
            continue;
        }
        for (std::size_t k = 0; isIn(group) && k < group->getTools().size(); ++k) {
            const McHandle<ExTool> other = group->getTools()[k];
            if (other.get() != this) {
                other->setActive(false);
            }
        }
    }
}

void ExTool::appendUI(ExToolUI *ui)
{
    appendOnce(m_uis, ui);
}

void ExTool::removeUI(ExToolUI *ui)
{
    std::erase(m_uis, ui);
}

void ExTool::appendGroup(ExToolGroup *group)
{
    appendOnce(m_groups, group);
}

void ExTool::removeGroup(ExToolGroup *group)
{
    std::erase(m_groups, group);
}

void ExTool::addPropertyKey(const QRegularExpression &key)
{
    m_propertyKeys.append(key);
}

void ExTool::addPropertyKey(const std::string &wildcard)
{
    addPropertyKey(QxWildcard::expression(QString::fromStdString(wildcard)));
}

void ExTool::registerTool(const char *key, Factory factory, int argument, bool isMenuTool)
{
    if (key != nullptr && *key != '\0') {
        factories()[key] = {factory, argument, isMenuTool ? MenuTool : NoMenuTool};
    }
}

ExTool *ExTool::getToolByDecorationKey(const char *key, bool create)
{
    if (key == nullptr) {
        return nullptr;
    }
    std::string current = key;
    Zel::UserFunctionPermissions::getNewToolID(current);
    if (!Zel::UserFunctionPermissions::instance().haveToolPermission(current, true)) {
        return nullptr;
    }
    const auto live = liveTools().find(current);
    if (live != liveTools().end()) {
        return live->second;
    }
    const FactoryEntry *const entry = create ? findFactory(current.c_str()) : nullptr;
    return entry == nullptr || entry->factory == nullptr ? nullptr
                                                         : entry->factory(entry->argument);
}

bool ExTool::isMenuTool(const char *key)
{
    const FactoryEntry *const entry = findFactory(key);
    return entry != nullptr && entry->menuMark == MenuTool;
}

void ExTool::setMenuTool(const char *key, bool isMenuTool)
{
    if (FactoryEntry *const entry = findFactory(key)) {
        entry->menuMark = isMenuTool ? MenuTool : NoMenuTool;
    }
}

void ExTool::getDecorationKeyList(std::vector<std::string> &keys, bool all)
{
    keys.clear();
    for (const auto &[key, entry] : factories()) {
        if (all || Zel::UserFunctionPermissions::instance().haveToolPermission(key, true)) {
            keys.push_back(key);
        }
    }
}

void ExTool::dumpTools()
{
    QFile file(QStringLiteral("MovaraTools.txt"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return;
    }
    file.write("Auto-generated file by Extool.\n\n");
    for (const auto &[key, tool] : liveTools()) {
        if (!key.empty()) {
            file.write((key + "\n").c_str());
        }
    }
}

QList<void (*)()> &ExTool::initCallbackList()
{
    static auto *const callbacks = new QList<void (*)()>;
    return *callbacks;
}
