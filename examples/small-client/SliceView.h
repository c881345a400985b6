#pragma once

#include "framework/input/ExEventHandler.h"
#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExBaseViewerRenderWidget.h"
#include "platform/render/KxImageSeries.h"
#include "platform/render/KxSlice.h"
#include "platform/render/KxVolume.h"
#include "platform/util/McHandle.h"

#include <QImage>
#include <QPointer>

class SliceView;

/// The widget of a view: paints the last picture, and a frame while the view is the active one.
class SliceCanvas final : public ExBaseViewerRenderWidget
{
    Q_OBJECT

public:
    SliceCanvas(SliceView &view, QWidget *parent);
    [[nodiscard]] ExBaseViewer *viewer() override;
    /// The view goes, the widget may stay for a while.
    void detach() { m_view = nullptr; }
    void setPicture(const QImage &picture);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    SliceView *m_view;
    QImage m_picture;
};

/// Shows the slices of a series, one at a time. The wheel scrolls; linked views follow. Held by
/// McHandle. GUI thread only.
class SliceView final : public ExBaseViewer
{
public:
    static constexpr Ex::ViewerType type = Ex::ViewerType(1);

    explicit SliceView(QWidget *parent);
    ~SliceView() override;

    void setSeries(const McHandle<KxImageSeries> &series);
    [[nodiscard]] int sliceIndex() const { return m_index; }
    /// An index that is out of range counts as the nearest one that is not.
    void setSliceIndex(int index);
    /// Goes to the slice nearest to a point of the patient.
    void scrollTo(const McVec3d &point);
    [[nodiscard]] bool isInverted() const { return m_isInverted; }
    void setInverted(bool inverted);

    [[nodiscard]] Ex::ViewerType viewerType() const override { return type; }
    [[nodiscard]] std::string displaySetID() const override { return m_displaySet; }
    void setDisplaySetID(const std::string &id) override { m_displaySet = id; }
    [[nodiscard]] KxImageSeries *imageSet(int index) const override;
    [[nodiscard]] KxVolume *volume(int index) const override;
    [[nodiscard]] KxSlice *slice(bool preview) const override;
    [[nodiscard]] QWidget *renderWidget() const override { return m_canvas; }
    [[nodiscard]] ExEventHandler *eventHandler() const override { return &m_input; }
    void activated() override;
    void renderFrame() override;

private:
    bool activate(const ExEvent &event);
    bool scroll(const ExEvent &event);
    void takeFollowersAlong();

    QPointer<SliceCanvas> m_canvas;
    mutable ExEventHandler m_input;
    std::string m_displaySet;
    McHandle<KxImageSeries> m_series;
    mutable KxSlice m_plane;
    int m_index = 0;
    bool m_isInverted = false;
};
