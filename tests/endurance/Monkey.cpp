#include "tests/endurance/Monkey.h"

#include "client/layout/LayoutTable.h"
#include "client/links/LinkType.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/tools/ExModal.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"
#include "platform/render/KxEngine.h"

#include <QApplication>
#include <QDialog>
#include <QDrag>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr int rememberedDeeds = 40;

/// Commands that leave the program or its world: the end, files, the desktop's own dialogs.
bool isLeftOut(const std::string &key)
{
    static const std::array<const char *, 9> keys{"File.Quit", "File.OpenFolder", "File.SaveViewer",
        "File.SaveWindow", "File.OpenSession", "File.SaveSession", "Edit.ToolBars", "Help.About",
        "Measure.Copy"};
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

/// Ends whatever asks the user something, as Return or Escape do.
void endDialogs(bool accepts)
{
    QWidget *const popup = QApplication::activePopupWidget();
    QWidget *const modal = QApplication::activeModalWidget();
    if (popup != nullptr) {
        popup->close();
    } else if (auto *const question = qobject_cast<QMessageBox *>(modal);
               question != nullptr && accepts) {
        question->buttons().constFirst()->click();
    } else if (auto *const dialog = qobject_cast<QDialog *>(modal)) {
        dialog->reject();
    } else {
        QDrag::cancel(); // It waits for the display's own mouse, which nobody moves.
    }
}

/// What must not be hit by chance: the ends of windows, and files outside.
bool isTabooed(const QWidget &place)
{
    const auto *const button = qobject_cast<const QToolButton *>(&place);
    const QAction *const action = button == nullptr ? nullptr : button->defaultAction();
    return action != nullptr && isLeftOut(action->objectName().toStdString());
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
    : m_seed(seed)
    , m_series{PhantomSeries::make(PhantomSeries::Grid::Axial, "one"),
          PhantomSeries::make(PhantomSeries::Grid::Coronal, "two", 3),
          PhantomSeries::make(PhantomSeries::Grid::Oblique, "three", 1, "elsewhere")}
{
    addStudies();
    m_fixture.show(m_series.front());
}

void Monkey::addStudies()
{
    m_files.addStack(5);
    for (int i = 11; i < 14; ++i) {
        m_files.addSlice(i, 3 * i, {{"G0020-000E", "2.25.1.2"}});
    }
    // Another patient, whose third image is missing.
    for (const int i : {21, 22, 24}) {
        m_files.addSlice(i, 2 * i,
            {{"G0010-0020", "ID2"}, {"G0010-0010", "Other^Patient"}, {"G0020-000D", "2.25.2"},
                {"G0020-000E", "2.25.2.1"}});
    }
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
        Kind{1, &Monkey::destroyTool}, Kind{1, &Monkey::openStudies}, Kind{3, &Monkey::openSeries},
        Kind{2, &Monkey::closeSeries}, Kind{1, &Monkey::saveSession}, Kind{1, &Monkey::openSession},
        Kind{10, &Monkey::rest}, Kind{1, &Monkey::settle}};
    static const int weights = std::accumulate(
        kinds.begin(), kinds.end(), 0, [](int sum, const Kind &kind) { return sum + kind.weight; });
    beginStep();
    int place = below(weights);
    const auto *kind = kinds.begin();
    while (place >= kind->weight) {
        place -= kind->weight;
        ++kind;
    }
    // A deed may open a dialog that waits for its user.
    QTimer answer;
    QObject::connect(
        &answer, &QTimer::timeout, &answer, [accepts = below(2) == 0] { endDialogs(accepts); });
    answer.start(20);
    m_deeds.append((this->*kind->deed)());
    if (m_deeds.size() > rememberedDeeds) {
        m_deeds.removeFirst();
    }
    return brokenRule();
}

/// What a step does hangs on its number, not on how often the steps before it have drawn: that may
/// differ with the time that something takes.
void Monkey::beginStep()
{
    std::seed_seq seed{m_seed, m_step++};
    m_random.seed(seed);
    m_isSettled = false;
}

WorkstationViewer *Monkey::someViewer()
{
    const auto viewers = m_fixture.workstation().viewers();
    return viewers.empty() ? nullptr : oneOf(viewers);
}

/// A viewer as a rule, else whatever is there in one of the windows.
QWidget *Monkey::somePlace()
{
    WorkstationViewer *const viewer = someViewer();
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget *window) { return !window->isVisible(); });
    if (below(3) != 0 || windows.isEmpty()) {
        return viewer == nullptr ? nullptr : viewer->widget();
    }
    QWidget *const window = oneOf(windows);
    QWidget *const place = window->childAt(somePoint(*window));
    return place == nullptr || isTabooed(*place) ? nullptr : place;
}

QString Monkey::someSeries()
{
    static const std::array<const char *, 3> all{"2.25.1.1", "2.25.1.2", "2.25.2.1"};
    return QLatin1String(oneOf(all));
}

QPoint Monkey::somePoint(const QWidget &widget)
{
    return {below(std::max(1, widget.width())), below(std::max(1, widget.height()))};
}

Qt::KeyboardModifiers Monkey::someModifiers()
{
    static const std::array<Qt::KeyboardModifiers, 6> all{Qt::NoModifier, Qt::NoModifier,
        Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return oneOf(all);
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
    if (m_pressedOn == nullptr || !m_held) {
        m_pressedOn = somePlace();
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
    const Qt::MouseButton button = oneOf(buttons);
    if (!m_held) {
        m_pressedOn = somePlace();
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
    if (QWidget *const place = somePlace()) {
        QTest::mouseDClick(place, Qt::LeftButton, {}, somePoint(*place));
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
    const std::string key = oneOf(keys);
    ExTool *const chosen = ExTool::getToolByDecorationKey(key.c_str(), true);
    if (chosen != nullptr && chosen->isEnabled(ExViewerManager::getInstance().activeViewer())) {
        chosen->setActive(!chosen->isActivatable() || !chosen->isActive());
    }
    return QString::fromStdString(key);
}

QString Monkey::chooseLayout()
{
    const ViewerLayout &layout = oneOf(LayoutTable::all());
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

QString Monkey::openStudies()
{
    m_fixture.session().open({m_files.folderName()});
    return u"open the folder"_s;
}

QString Monkey::openSeries()
{
    const QStringList uids{someSeries(), someSeries()};
    m_fixture.session().openSelection(uids);
    return u"open "_s + uids.join(u' ');
}

QString Monkey::closeSeries()
{
    const QString uid = someSeries();
    m_fixture.session().closeSeries({uid});
    return u"close "_s + uid;
}

QString Monkey::saveSession()
{
    return u"save the session "_s + m_sessions.save(m_sessionFile);
}

QString Monkey::openSession()
{
    return u"open the session "_s + m_sessions.open(m_sessionFile);
}

QString Monkey::changeMonitors()
{
    static const std::array<const char *, 5> sets{"1600x1200", "1600x1200 1280x1024",
        "1280x1024-1280+0 1600x1200+0+0", "1024x768 1024x768 1024x768", "800x600"};
    const char *const monitors = oneOf(sets);
    setMonitors(monitors);
    ExMonitorManager::instance().applyConfigurations();
    return u"monitors "_s + QLatin1String(monitors);
}

QString Monkey::changeWindow()
{
    ExMonitorWidget &window = m_fixture.window();
    const int choice = below(4);
    const std::array<std::function<void()>, 4> changes{[&] { window.showFullScreen(); },
        [&] { window.restoreWidget(); }, [&] { window.minimizeWidget(); },
        [&] { window.showStored(); }};
    changes[static_cast<std::size_t>(choice)]();
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
    const McHandle<ExTool> shortLived(new ShortLivedTool);
    shortLived->setActive(true);
    moveMouse();
    return u"destroy a tool at work"_s;
}

QString Monkey::rest()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return u"rest"_s;
}

QString Monkey::settle()
{
    releaseMouse();
    // Cine shows the next image for ever, and is switched off where it plays.
    for (WorkstationViewer *viewer : m_fixture.workstation().viewers()) {
        ExViewerManager::getInstance().setActiveViewer(viewer);
        tool("Phase.Cine").setActive(false);
    }
    m_isSettled = true;
    std::ignore = QTest::qWaitFor([this] { return brokenRest().isEmpty(); });
    return u"settle"_s;
}

QString Monkey::brokenRule()
{
    for (const QString &broken : {brokenViewers(), brokenLinks(), brokenTools()}) {
        if (!broken.isEmpty()) {
            return broken;
        }
    }
    return m_isSettled ? brokenRest() : QString();
}

QString Monkey::brokenViewers()
{
    const ExViewerManager &manager = ExViewerManager::getInstance();
    const ExBaseViewerGroup all(nullptr, ExBaseViewerGroup::ALL_VIEWERS, Ex::ANY_VIEWER_TYPE);
    if (!all.isValid() || all.size() != manager.numViewers()) {
        return u"the viewers are no valid group"_s;
    }
    if (manager.activeViewer() != nullptr && !all.contains(manager.activeViewer())) {
        return u"the active viewer is none of the viewers"_s;
    }
    return {};
}

QString Monkey::brokenLinks()
{
    for (const LinkType &type : LinkType::all()) {
        for (int i = 0; i < ExViewerDB::numGroups(type.group); ++i) {
            const ExBaseViewerGroup &linked = ExViewerDB::group(type.group, i)->viewers();
            if (!linked.isValid() || !areManaged(linked)) {
                return u"viewers that are gone are linked: "_s + QString::fromStdString(type.group);
            }
        }
    }
    return {};
}

QString Monkey::brokenTools()
{
    for (const ExBaseViewer *viewer :
        ExBaseViewerGroup(nullptr, ExBaseViewerGroup::ALL_VIEWERS, Ex::ANY_VIEWER_TYPE)) {
        const McDArray<ExModal *> &tools = viewer->modalTools();
        for (int i = 0; i < tools.size(); ++i) {
            if (tools.indexOf(tools[i]) != i) {
                return u"a tool works twice on a viewer"_s;
            }
        }
    }
    return {};
}

/// What must have come to an end when the user does nothing.
QString Monkey::brokenRest()
{
    if (m_fixture.workstation().session().isBusy() || m_sessions.isRestoring()) {
        return u"reading does not end"_s;
    }
    if (!m_fixture.workstation().isSettled()) {
        return u"a viewer does not get its final image"_s;
    }
    if (KxEngine::instance().renderQueue().numRequests() != 0) {
        return u"the render queue is not empty"_s;
    }
    return QApplication::activeModalWidget() == nullptr ? QString() : u"a dialog stays"_s;
}
