#include "client/links/LinkedActions.h"
#include "client/tools/WorkstationTools.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/notification/ExNotifiables.h"
#include "framework/tools/ToolModule.h"
#include "platform/properties/KxPropertyPool.h"

#include <QTimer>

namespace {

constexpr int milliseconds = 1000;
constexpr int slowest = 1;
constexpr int fastest = 30;

KxProperty<int> &framesPerSecond()
{
    constexpr int usual = 8;
    KxPropertyPool &pool = KxPropertyPool::instance();
    KxProperty<int> &property
        = pool.property("Cine.FramesPerSecond", usual, pool.registrySerializer());
    property.setAttribute("Minimum", slowest);
    property.setAttribute("Maximum", fastest);
    return property;
}

/// Plays the phases of one viewer, and of those linked with it, one after the other until it is
/// switched off. A viewer that goes, or shows something else, ends it.
class Cine final : public ViewerSwitch
{
public:
    explicit Cine(const char *key)
        : ViewerSwitch(key)
    {
        addPropertyKey("Cine.*");
        QObject::connect(
            &m_timer, &QTimer::timeout, [this] { LinkedActions::stepPhase(*m_viewer, 1); });
        QObject::connect(
            &framesPerSecond(), &KxVariant::propertyChanged, &m_timer, [this] { setSpeed(); });
        setSpeed();
    }

    [[nodiscard]] bool supportsViewer(const ExBaseViewer *viewer) const override
    {
        return ViewerSwitch::supportsViewer(viewer)
            && static_cast<const WorkstationViewer *>(viewer)->numPhases() > 1;
    }

    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotifications(this, ExNotification::ABOUT_TO_DELETE_VIEWERS,
            ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::NONE);
    }

    void notified(const ExNotification &notification) override
    {
        if (m_viewer && notification.viewer() == m_viewer.get()) {
            stop();
        }
    }

protected:
    [[nodiscard]] bool isOn(const WorkstationViewer &viewer) const override
    {
        return m_viewer.get() == &viewer;
    }

    void set(WorkstationViewer &viewer, bool on) override
    {
        stop();
        if (on) {
            m_viewer = &viewer;
            m_timer.start();
            ExNotifiable::notify({ExNotification::CINE_START, &viewer, this});
        }
    }

private:
    void setSpeed()
    {
        m_timer.setInterval(milliseconds / qBound(slowest, framesPerSecond().value(), fastest));
    }

    void stop()
    {
        if (m_viewer) {
            const McHandle<WorkstationViewer> viewer = m_viewer;
            m_viewer.reset();
            m_timer.stop();
            ExNotifiable::notify({ExNotification::CINE_STOP, viewer, this});
        }
    }

    QTimer m_timer;
    McHandle<WorkstationViewer> m_viewer; ///< while it plays
};

const ToolModule cine(
    {
        .key = "Phase.Cine",
        .category = QT_TRANSLATE_NOOP("Tools", "Time phase"),
        .text = QT_TRANSLATE_NOOP("Tools", "&Cine"),
        .textWhenActive = QT_TRANSLATE_NOOP("Tools", "Stop &cine"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Play the time phases one after the other"),
        .description = QT_TRANSLATE_NOOP("Tools", "How fast is a setting."),
        .icon = "cine",
        .shortCut = "C",
    },
    [](int) -> ExTool * { return new Cine("Phase.Cine"); }, 0, ToolModule::Place::InMenus,
    // The setting is there before the tool is.
    [] { framesPerSecond(); });

} // namespace
