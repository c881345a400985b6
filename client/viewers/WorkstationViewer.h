#pragma once

#include "client/data/LoadedSeries.h"
#include "client/overlay/OverlayContent.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "framework/input/ExEventHandler.h"
#include "framework/notification/ExNotification.h"
#include "framework/viewers/ExBaseViewer.h"
#include "platform/util/McHandle.h"

#include <QTimer>

#include <string>

class ViewerOverlay;

/// What the workstation's viewers have in common: a series and its phase, a render widget, an event
/// handler, an overlay, and the change between quick frames while the user interacts and a final
/// one afterwards. Setters do nothing when nothing changes; else they request a frame and then
/// notify. Held by McHandle. GUI thread only.
class WorkstationViewer : public ExBaseViewer
{
public:
    enum Type : int { SliceType = 1, VolumeType = 2 };
    [[nodiscard]] static bool isSliceType(Ex::ViewerType type)
    {
        return type == static_cast<Ex::ViewerType>(SliceType);
    }
    [[nodiscard]] static bool isVolumeType(Ex::ViewerType type)
    {
        return type == static_cast<Ex::ViewerType>(VolumeType);
    }

    [[nodiscard]] Ex::ViewerType viewerType() const override { return m_type; }
    [[nodiscard]] std::string displaySetID() const override { return m_displaySetId; }
    void setDisplaySetID(const std::string &id) override { m_displaySetId = id; }
    [[nodiscard]] KxImageSeries *imageSet(int index) const override;
    [[nodiscard]] KxVolume *volume(int index) const override;
    [[nodiscard]] QWidget *renderWidget() const override;
    [[nodiscard]] ExEventHandler *eventHandler() const override { return m_eventHandler.get(); }
    [[nodiscard]] bool isFinal() const override { return m_isFinal; }
    void activated() override;
    void reattach() override;

    /// The series shown, or null.
    [[nodiscard]] LoadedSeries *series() const { return m_series; }
    /// Shows a series from its first phase on, or none. Notifies VIEWER_VOLUME_CHANGED.
    void setSeries(const McHandle<LoadedSeries> &series);
    /// Whether there are series that the user could choose from; none at first.
    void setSeriesOffered(bool offered);
    [[nodiscard]] bool isSeriesOffered() const { return m_isSeriesOffered; }
    /// The series has got its volumes, or further slices, or is complete.
    void seriesChanged();
    [[nodiscard]] int phase() const { return m_phase; }
    [[nodiscard]] int numPhases() const;
    /// Brought into range. Notifies TIMESERIES_CHANGED.
    void setPhase(int phase);

    [[nodiscard]] ViewerRenderWidget *widget() const { return m_widget; }
    /// To be called by the widget when it goes before its viewer does.
    void widgetGone() { m_widget = nullptr; }
    /// The widget has another size.
    virtual void resized() = 0;
    /// What lies over the image now.
    [[nodiscard]] virtual OverlayContent overlayContent() const = 0;
    /// Brings what lies over the image up to date.
    void updateOverlay();
    /// Whether the final frame of the present state has been drawn and nothing is under way.
    [[nodiscard]] virtual bool isSettled() const;

protected:
    WorkstationViewer(Type type, QWidget *parent);
    ~WorkstationViewer() override;

    /// There is another volume than before (null for none): take what is needed of it.
    /// @param isOtherPhase of the same images, on the same grid: it is seen from where the last one
    /// was.
    virtual void volumeChanged(bool isOtherPhase) = 0;
    /// Voxels of the volume have been written to.
    virtual void voxelsChanged() = 0;

    /// The user is changing something: frames are quick ones until nothing happens for a moment.
    void interact();
    [[nodiscard]] bool isInteracting() const { return m_settleTimer.isActive(); }
    /// To be called at the end of renderFrame().
    void showFrame(const QImage &frame, bool isFinal);
    void notify(ExNotification::Type type);

private:
    void setVolume(bool isOtherPhase);

    Ex::ViewerType m_type;
    std::string m_displaySetId;
    McHandle<LoadedSeries> m_series;
    McHandle<KxVolume> m_volume;
    bool m_isSeriesOffered = false;
    int m_phase = 0;
    ViewerRenderWidget *m_widget; ///< null once the window that it is in has gone
    std::unique_ptr<ExEventHandler> m_eventHandler;
    McHandle<ViewerOverlay> m_overlay;
    QTimer m_settleTimer;
    bool m_isFinal = true;
};
