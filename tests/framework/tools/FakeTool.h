#pragma once

#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExHotKeyEvent.h"
#include "framework/tools/ExHotKeys.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/ExToolUI.h"
#include "tests/support/Prelude.h"

/// What happened to the fakes since the last call.
inline QStringList fakeLog;
inline QString takeLog()
{
    return std::exchange(fakeLog, {}).join(u',');
}

/// Tool whose answers the test sets.
class FakeTool : public ExTool
{
public:
    using ExTool::ExTool;
    ~FakeTool() override
    {
        act = nullptr;
        note("gone");
    }

    [[nodiscard]] bool isStandard() const override { return standard; }
    [[nodiscard]] bool isEnabled(const ExBaseViewer *viewer) const override
    {
        return enabled || ExTool::isEnabled(viewer);
    }
    [[nodiscard]] bool isActivatable() const override { return activatable; }
    [[nodiscard]] bool isHotKeyGlobal() const override { return global; }
    bool setActive(bool on) override
    {
        note(on ? "on" : "off");
        return ExTool::setActive(on);
    }
    bool onHotKey(const ExHotKeyEvent &event) override
    {
        note("hot key");
        return takesHotKey && ExTool::onHotKey(event);
    }
    void note(const char *event) const
    {
        fakeLog.append(QLatin1String(decorationKey()) + u' ' + QLatin1String(event));
        if (act) {
            act();
        }
    }

    bool standard = false;
    bool enabled = false;
    bool activatable = true;
    bool global = true;
    bool takesHotKey = true;
    std::function<void()> act; ///< called after an event was noted
};

class FakeUI : public ExToolUI
{
public:
    [[nodiscard]] bool isActive() const override { return false; }
    [[nodiscard]] QAction *action() const override { return nullptr; }
    void update(ExBaseViewer *viewer) override
    {
        fakeLog.append(QLatin1String(viewer == nullptr ? "update" : "update viewer"));
    }
    void setTool(ExTool *tool) override
    {
        ExToolUI::setTool(tool);
        fakeLog.append(u"shows " % QLatin1String(tool->decorationKey()));
    }
};

/// A viewer that shows a series of one volume, so that tools support it.
inline McHandle<FakeViewer> viewerWithVolume()
{
    const McHandle<FakeViewer> viewer = new FakeViewer;
    viewer->imageSets[0] = new KxImageSeries("1.2.3");
    viewer->imageSets[0]->appendVolume(new KxVolume({1, 1, 1}, KxVolume::ScalarType::UInt8), {});
    return viewer;
}

/// A tool that is enabled anywhere, and known to the decorations of the FakeApplication.
template <typename Tool = FakeTool>
Tool *makeTool(const char *key, const char *shortCut = "")
{
    auto &app = dynamic_cast<FakeApplication &>(ExApplication::instance());
    app.decorations.entries[QLatin1String(key)].shortCut = QLatin1String(shortCut);
    auto *const tool = new Tool(key);
    tool->enabled = true;
    return tool;
}

/// A test whose functions have an application and a viewer manager each, and leave nothing behind.
class TestOfTools : public TestWithSettings
{
protected:
    void setUp()
    {
        m_app = std::make_unique<FakeApplication>();
        m_manager = std::make_unique<FakeViewerManager>();
        takeLog();
    }
    void tearDown()
    {
        qDeleteAll(std::exchange(m_app->actions, {}));
        m_manager.reset();
        m_app.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
        QCOMPARE(ExHotKeys::hotKeyTools().size(), std::size_t(0));
    }
    /// A viewer with a volume that is the active one.
    McHandle<FakeViewer> addActiveViewer()
    {
        const McHandle<FakeViewer> viewer = viewerWithVolume();
        m_manager->add(viewer);
        m_manager->setActiveViewer(viewer);
        return viewer;
    }

    std::unique_ptr<FakeApplication> m_app;
    std::unique_ptr<FakeViewerManager> m_manager;
};

/// The keys of actions; "-" for a separator.
inline QString names(const QList<QAction *> &actions)
{
    QStringList all;
    for (const QAction *action : actions) {
        all.append(action->isSeparator() ? QStringLiteral("-") : action->objectName());
    }
    return all.join(u' ');
}
