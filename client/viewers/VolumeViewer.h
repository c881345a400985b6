#pragma once

#include "client/viewers/ViewerStates.h"
#include "client/viewers/VolumeRenderThread.h"
#include "client/viewers/WorkstationViewer.h"

#include <QObject>

#include <memory>

/// Shows a volume in three dimensions, by rays through its values. Pictures are made in a thread of
/// the viewer's own; renderFrame() shows the last one and asks for the next. Where there is no X
/// display it says so. Setters do nothing when nothing changes; else they request a frame and
/// notify as told at each.
class VolumeViewer final : public WorkstationViewer
{
public:
    explicit VolumeViewer(QWidget *parent);

    /// Turns the volume like a ball under the pointer. @param right,down in device-independent
    /// pixels. Notifies PERSPECTIVE_CHANGED.
    void rotate(double right, double down);
    /// Shows it from the direction, and with the up direction, of another viewer.
    void setView(const McVec3d &viewDirection, const McVec3d &up);
    [[nodiscard]] const McVec3d &viewDirection() const { return m_viewDirection; }
    [[nodiscard]] const McVec3d &up() const { return m_up; }
    /// Device-independent pixels for a millimetre. Notifies ZOOM_CHANGED.
    void setZoom(double pixelsPerMm);
    [[nodiscard]] double zoom() const { return m_zoom; }
    /// Which values are seen: below the window they are clear. Notifies DATA_WINDOW_CHANGED.
    void setWindow(const KxVolume::Window &window);
    [[nodiscard]] const KxVolume::Window &window() const { return m_window; }
    /// From the front, at the size that fits, in the first window. Notifies DATA_WINDOW_CHANGED,
    /// ZOOM_CHANGED and PERSPECTIVE_CHANGED.
    void reset();

    /// How the series is shown now.
    [[nodiscard]] VolumeView view() const;
    /// Shows the series so again; ignored while there are no images. The directions must be as
    /// those of VolumeScene. Notifies of each thing that changes.
    void setView(const VolumeView &view);

    void renderFrame() override;
    void terminateRendering() override;
    void cleanUpNodes() override;
    void resized() override;
    [[nodiscard]] OverlayContent overlayContent() const override;
    [[nodiscard]] bool isSettled() const override;
    /// Why there is no picture; empty when there is one, or will be soon.
    [[nodiscard]] QString obstacle() const;

protected:
    ~VolumeViewer() override;

    void volumeChanged(bool isOtherPhase) override;
    void voxelsChanged() override;

private:
    void changed(ExNotification::Type type);
    void takePicture(const QImage &picture, int number);
    void askForPicture();
    void takeProblem(const QString &reason, int number);
    void needPicture();
    [[nodiscard]] double fittingZoom() const;

    McVec3d m_viewDirection{0, 1, 0};
    McVec3d m_up{0, 0, 1};
    double m_zoom = 1;
    bool m_isFitting = true;
    KxVolume::Window m_window;

    QObject m_context; ///< Ends the connection to the thread.
    std::unique_ptr<VolumeRenderThread> m_thread;
    QImage m_picture;
    bool m_pictureIsQuick = false;
    bool m_hasNewPicture = false;
    /// The state has changed since the last picture was asked for.
    bool m_needsPicture = true;
    /// A picture that was asked for has not come yet.
    bool m_isWaiting = false;
    bool m_askedForQuick = false;
    int m_askedNumber = 0;
    /// Why the last picture could not be made; empty when it could.
    QString m_problem;
};
