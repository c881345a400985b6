#pragma once

#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExBaseViewerRenderWidget.h"
#include "platform/render/KxImageSeries.h"
#include "platform/render/KxSlice.h"

#include <QPointer>
#include <QStringList>

#include <array>
#include <functional>
#include <optional>

/// Render widget that shows nothing and belongs to the viewer it is given.
class FakeRenderWidget : public ExBaseViewerRenderWidget
{
    Q_OBJECT

public:
    explicit FakeRenderWidget(ExBaseViewer *viewer = nullptr)
        : ExBaseViewerRenderWidget(nullptr)
        , m_viewer(viewer)
    { }
    [[nodiscard]] ExBaseViewer *viewer() override { return m_viewer; }

private:
    ExBaseViewer *m_viewer;
};

/// Viewer whose properties the test sets, and that writes "name hook" to a log for every hook that
/// is called. Make it with new and keep it in a McHandle.
class FakeViewer : public ExBaseViewer
{
public:
    static constexpr Ex::ViewerType usualType = static_cast<Ex::ViewerType>(1);

    /// @param log may be null; else it outlives the viewer.
    explicit FakeViewer(const QString &name = {}, QStringList *log = nullptr)
        : m_name(name)
        , m_log(log)
    { }
    ~FakeViewer() override
    {
        note("gone");
        delete m_widget;
    }

    /// Gives the viewer a FakeRenderWidget of its own, and returns it.
    QWidget &makeWidget()
    {
        m_widget = new FakeRenderWidget(this);
        return *m_widget;
    }

    [[nodiscard]] Ex::ViewerType viewerType() const override { return type; }
    [[nodiscard]] std::string displaySetID() const override { return displaySet; }
    void setDisplaySetID(const std::string &id) override { displaySet = id; }
    [[nodiscard]] KxImageSeries *imageSet(int index) const override
    {
        return imageSets.at(static_cast<std::size_t>(index));
    }
    [[nodiscard]] KxVolume *volume(int index) const override
    {
        return index == 0 ? shown.get() : nullptr;
    }
    [[nodiscard]] KxVolume *sourceVolume(int index) const override
    {
        return index == 0 && source ? source.get() : ExBaseViewer::sourceVolume(index);
    }
    [[nodiscard]] KxSlice *slice(bool /*preview*/) const override
    {
        return plane ? const_cast<KxSlice *>(&*plane) : nullptr;
    }
    [[nodiscard]] QWidget *renderWidget() const override { return m_widget; }
    [[nodiscard]] ExEventHandler *eventHandler() const override { return handler; }
    void renderFrame() override { note("frame"); }
    [[nodiscard]] bool isFinal() const override { return final; }
    [[nodiscard]] bool isOffScreen() const override { return offScreen; }
    void terminateRendering() override { note("terminateRendering"); }
    void cleanUpNodes() override { note("cleanUpNodes"); }
    void activated() override { note("activated"); }
    [[nodiscard]] bool isReusable() const override { return reusable; }
    [[nodiscard]] bool isPreferredForReuse() const override { return preferred; }
    void putAside(bool forGood) override { note(forGood ? "putAside final" : "putAside"); }
    void takenBack() override { note("takenBack"); }
    void clearCachedImages() override { note("clearCachedImages"); }
    void reattach() override { note("reattach"); }
    [[nodiscard]] bool keepsPlacement() const override { return keepsItsPlace; }

    Ex::ViewerType type = usualType;
    std::string displaySet;
    std::array<McHandle<KxImageSeries>, 2> imageSets;
    McHandle<KxVolume> shown;
    McHandle<KxVolume> source; ///< null for the volume shown
    std::optional<KxSlice> plane;
    ExEventHandler *handler = nullptr;
    bool final = true;
    bool offScreen = false;
    bool reusable = false;
    bool preferred = false;
    bool keepsItsPlace = false;
    std::function<void()> onHook; ///< called after a hook was noted

private:
    void note(const char *hook)
    {
        if (m_log != nullptr) {
            m_log->append(m_name + u' ' + QLatin1String(hook));
        }
        if (onHook) {
            onHook();
        }
    }

    QString m_name;
    QStringList *m_log;
    QPointer<QWidget> m_widget;
};
