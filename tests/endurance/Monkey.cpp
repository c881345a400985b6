#include "tests/endurance/Monkey.h"

#include "client/layout/LayoutTable.h"
#include "client/links/LinkType.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/tools/ExModal.h"
#include "framework/tools/ExTool.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int rememberedDeeds = 40;

/// Ends whatever asks the user something, as Escape does.
void leaveDialogs()
{
    if (QWidget *const popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
        dialog->reject();
    }
}

/// Commands that leave the program or its world: the end, files, the desktop's own dialogs.
bool isLeftOut(const std::string &key)
{
    static const std::array<const char *, 9> keys{"File.Quit", "File.OpenFolder", "File.SaveViewer",
        "File.SaveWindow", "File.OpenSession", "File.SaveSession", "Edit.ToolBars", "Help.About",
        "Measure.Copy"};
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

/// A tool that is at work when it goes.
class ShortLivedTool final : public ExModal
{
public:
    ShortLivedTool()
        : ExModal("Endurance.Tool", Kx::LeftButton, true)
    { }
    [[nodiscard]] bool isStandard() const override { return false; }
};

bool areManaged(const ExBaseViewerGroup &viewers)
{
    return std::all_of(viewers.begin(), viewers.end(), [](const ExBaseViewer *viewer) {
        return ExViewerManager::getInstance().viewerIndex(viewer) >= 0;
    });
}

} // namespace

Monkey::Monkey(unsigned seed)
    : m_random(seed)
    , m_series{PhantomSeries::make(PhantomSeries::Grid::Axial, "one"),
          PhantomSeries::make(PhantomSeries::Grid::Coronal, "two", 3),
          PhantomSeries::make(PhantomSeries::Grid::Oblique, "three", 1, "elsewhere")}
{
    m_fixture.show(m_series.front());
}

QString Monkey::step()
{
    struct Kind
    {
        int weight;
        Deed deed;
    };
    static const std::array kinds{Kind{30, &Monkey::moveMouse}, Kind{12, &Monkey::pressMouse},
        Kind{12, &Monkey::releaseMouse}, Kind{3, &Monkey::doubleClick}, Kind{8, &Monkey::turnWheel},
        Kind{12, &Monkey::pressKey}, Kind{8, &Monkey::command}, Kind{2, &Monkey::chooseLayout},
        Kind{4, &Monkey::showSeries}, Kind{1, &Monkey::changeMonitors},
        Kind{2, &Monkey::changeWindow}, Kind{2, &Monkey::resizeWindow},
        Kind{1, &Monkey::destroyTool}, Kind{10, &Monkey::rest}};
    int place = below(107);
    const auto *kind = kinds.begin();
    while (place >= kind->weight) {
        place -= kind->weight;
        ++kind;
    }
    // A deed may open a dialog that waits for its user.
    QTimer leaver;
    QObject::connect(&leaver, &QTimer::timeout, &leaveDialogs);
    leaver.start(20);
    m_deeds.append((this->*kind->deed)());
    if (m_deeds.size() > rememberedDeeds) {
        m_deeds.removeFirst();
    }
    return brokenRule();
}

WorkstationViewer *Monkey::someViewer()
{
    const auto viewers = m_fixture.workstation().viewers();
    return viewers.empty() ? nullptr
                           : viewers[static_cast<std::size_t>(below(int(viewers.size())))];
}

QPoint Monkey::somePoint(const QWidget &widget)
{
    return {below(std::max(1, widget.width())), below(std::max(1, widget.height()))};
}

Qt::KeyboardModifiers Monkey::someModifiers()
{
    static const std::array<Qt::KeyboardModifiers, 6> all{Qt::NoModifier, Qt::NoModifier,
        Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return all[static_cast<std::size_t>(below(int(all.size())))];
}

void Monkey::sendMouse(QEvent::Type type, Qt::MouseButton button)
{
    if (m_pressedOn != nullptr) {
        QMouseEvent event(type, m_position, m_pressedOn->mapToGlobal(m_position), button, m_held,
            someModifiers());
        QApplication::sendEvent(m_pressedOn, &event);
    }
}

QString Monkey::moveMouse()
{
    if (m_pressedOn == nullptr) {
        WorkstationViewer *const viewer = someViewer();
        m_pressedOn = viewer == nullptr ? nullptr : viewer->widget();
    }
    if (m_pressedOn != nullptr) {
        m_position = somePoint(*m_pressedOn);
        sendMouse(QEvent::MouseMove, Qt::NoButton);
    }
    return u"move to %1,%2"_s.arg(m_position.x()).arg(m_position.y());
}

QString Monkey::pressMouse()
{
    static const std::array buttons{
        Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};
    const Qt::MouseButton button = buttons[static_cast<std::size_t>(below(int(buttons.size())))];
    if (!m_held) {
        WorkstationViewer *const viewer = someViewer();
        m_pressedOn = viewer == nullptr ? nullptr : viewer->widget();
        m_position = m_pressedOn == nullptr ? QPoint() : somePoint(*m_pressedOn);
    }
    m_held |= button;
    sendMouse(QEvent::MouseButtonPress, button);
    return u"press %1"_s.arg(button);
}

QString Monkey::releaseMouse()
{
    for (const auto button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        if (m_held.testFlag(button)) {
            m_held &= ~Qt::MouseButtons(button);
            sendMouse(QEvent::MouseButtonRelease, button);
        }
    }
    return u"release"_s;
}

QString Monkey::doubleClick()
{
    releaseMouse();
    if (WorkstationViewer *const viewer = someViewer()) {
        QTest::mouseDClick(viewer->widget(), Qt::LeftButton, {}, somePoint(*viewer->widget()));
    }
    return u"double click"_s;
}

QString Monkey::turnWheel()
{
    const int steps = below(7) - 3;
    if (WorkstationViewer *const viewer = someViewer()) {
        WindowFixture::wheel(*viewer, steps, someModifiers());
    }
    return u"wheel %1"_s.arg(steps);
}

QString Monkey::pressKey()
{
    static const std::array keys{Qt::Key_Escape, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp,
        Qt::Key_Left, Qt::Key_Right, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Backspace,
        Qt::Key_Z};
    const int choice = below(int(keys.size()) + 26);
    const Qt::Key key = choice < int(keys.size())
        ? keys[static_cast<std::size_t>(choice)]
        : static_cast<Qt::Key>(Qt::Key_A + choice - int(keys.size()));
    const Qt::KeyboardModifiers modifiers = below(5) == 0 ? Qt::ControlModifier : Qt::NoModifier;
    const bool opensFiles = modifiers == Qt::ControlModifier
        && (key == Qt::Key_O || key == Qt::Key_S || key == Qt::Key_Q || key == Qt::Key_W);
    if (QWidget *const target = QApplication::focusWidget(); target != nullptr && !opensFiles) {
        QTest::keyClick(target, key, modifiers);
    }
    return u"key %1"_s.arg(QKeySequence(key | modifiers).toString());
}

QString Monkey::command()
{
    std::vector<std::string> keys;
    ExTool::getDecorationKeyList(keys, false);
    std::erase_if(keys, isLeftOut);
    const std::string key = keys[static_cast<std::size_t>(below(int(keys.size())))];
    ExTool *const tool = ExTool::getToolByDecorationKey(key.c_str(), true);
    if (tool != nullptr && tool->isEnabled(ExViewerManager::getInstance().activeViewer())) {
        tool->setActive(!tool->isActivatable() || !tool->isActive());
    }
    return QString::fromStdString(key);
}

QString Monkey::chooseLayout()
{
    const auto &layouts = LayoutTable::all();
    const ViewerLayout &layout = layouts[static_cast<std::size_t>(below(int(layouts.size())))];
    m_fixture.session().setLayoutByName(layout.name);
    return u"layout "_s + layout.name;
}

QString Monkey::showSeries()
{
    const int choice = below(int(m_series.size()) + 1);
    if (WorkstationViewer *const viewer = someViewer()) {
        viewer->setSeries(choice == int(m_series.size())
                ? McHandle<LoadedSeries>()
                : m_series[static_cast<std::size_t>(choice)]);
    }
    return u"series %1"_s.arg(choice);
}

QString Monkey::changeMonitors()
{
    static const std::array<const char *, 5> sets{"1600x1200", "1600x1200 1280x1024",
        "1280x1024-1280+0 1600x1200+0+0", "1024x768 1024x768 1024x768", "800x600"};
    const char *const monitors = sets[static_cast<std::size_t>(below(int(sets.size())))];
    qputenv("MOVARA_MONITORS", monitors);
    ExMonitorManager &manager = ExMonitorManager::instance();
    manager.readMonitorConfiguration();
    manager.applyConfigurations();
    return u"monitors "_s + QLatin1String(monitors);
}

QString Monkey::changeWindow()
{
    ExMonitorWidget &window = m_fixture.window();
    const int choice = below(4);
    switch (choice) {
    case 0:
        window.showFullScreen();
        break;
    case 1:
        window.restoreWidget();
        break;
    case 2:
        window.minimizeWidget();
        break;
    default:
        window.showStored();
        break;
    }
    return u"window state %1"_s.arg(choice);
}

QString Monkey::resizeWindow()
{
    const QSize size(400 + below(1600), 300 + below(1000));
    m_fixture.window().resize(size);
    return u"size %1x%2"_s.arg(size.width()).arg(size.height());
}

QString Monkey::destroyTool()
{
    const McHandle<ExTool> tool(new ShortLivedTool);
    tool->setActive(true);
    moveMouse();
    return u"destroy a tool at work"_s;
}

QString Monkey::rest()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return u"rest"_s;
}

QString Monkey::brokenRule()
{
    const ExViewerManager &manager = ExViewerManager::getInstance();
    const ExBaseViewerGroup all(nullptr, ExBaseViewerGroup::ALL_VIEWERS, Ex::ANY_VIEWER_TYPE);
    if (!all.isValid() || all.size() != manager.numViewers()) {
        return u"the viewers are no valid group"_s;
    }
    if (manager.activeViewer() != nullptr && !all.contains(manager.activeViewer())) {
        return u"the active viewer is none of the viewers"_s;
    }
    for (const LinkType &type : LinkType::all()) {
        for (int i = 0; i < ExViewerDB::numGroups(type.group); ++i) {
            const ExBaseViewerGroup &linked = ExViewerDB::group(type.group, i)->viewers();
            if (!linked.isValid() || !areManaged(linked)) {
                return u"viewers that are gone are linked: "_s + QString::fromStdString(type.group);
            }
        }
    }
    for (int i = 0; i < all.size(); ++i) {
        const McDArray<ExModal *> &tools = all[i]->modalTools();
        for (int k = 0; k < tools.size(); ++k) {
            if (tools.indexOf(tools[k]) != k) {
                return u"a tool works twice on a viewer"_s;
            }
        }
    }
    return {};
}
