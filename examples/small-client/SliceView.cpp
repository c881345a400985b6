#include "SliceView.h"

#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"
#include "framework/viewers/ExViewerManager.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

SliceCanvas::SliceCanvas(SliceView &view, QWidget *parent)
    : ExBaseViewerRenderWidget(parent)
    , m_view(&view)
{
    setFocusPolicy(Qt::StrongFocus);
}

ExBaseViewer *SliceCanvas::viewer()
{
    return m_view;
}

void SliceCanvas::setPicture(const QImage &picture)
{
    m_picture = picture;
    propertyUpdate();
    update();
}

void SliceCanvas::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    QRect place(QPoint(), m_picture.size().scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    painter.drawImage(place, m_picture);
    if (m_view != nullptr && ExViewerManager::isActiveViewer(*m_view)) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

SliceView::SliceView(QWidget *parent)
    : m_canvas(new SliceCanvas(*this, parent))
{
    m_input.connect(m_canvas);
    ExSignal press(ExSignal::PRESS, Qt::LeftButton, 0, 0);
    press.orderKey = 10; // before the others: they work on the active viewer
    m_input.addAction({press, this, &SliceView::activate});
    m_input.addAction({ExSignal(ExSignal::WHEEL, 0, 0, 0), this, &SliceView::scroll});
}

SliceView::~SliceView()
{
    ExViewerDB::clear(this);
    if (m_canvas) {
        m_canvas->detach();
        m_canvas->hide();
        m_canvas->deleteLater(); // it may be handling the very event that closed the view
    }
}

void SliceView::setSeries(const McHandle<KxImageSeries> &series)
{
    if (series.get() == m_series.get()) {
        return;
    }
    m_series = series;
    m_index = -1;
    setSliceIndex(m_series ? volume(0)->dimensions()[2] / 2 : 0);
    requestRender();
    ExNotifiable::notify({ExNotification::VIEWER_VOLUME_CHANGED, this});
}

KxImageSeries *SliceView::imageSet(int index) const
{
    return index == 0 ? m_series.get() : nullptr;
}

KxVolume *SliceView::volume(int index) const
{
    return index == 0 && m_series ? m_series->volume(0) : nullptr;
}

KxSlice *SliceView::slice(bool /*preview*/) const
{
    return volume(0) != nullptr ? &m_plane : nullptr;
}

void SliceView::setSliceIndex(int index)
{
    const KxVolume *const shown = volume(0);
    if (shown == nullptr) {
        return;
    }
    const auto [columns, rows, slices] = shown->dimensions();
    const int inRange = std::clamp(index, 0, slices - 1);
    if (inRange == m_index) {
        return;
    }
    m_index = inRange;
    const McTransform3d &grid = shown->voxelToPatient();
    const McVec3d center = grid.map({(columns - 1) / 2.0, (rows - 1) / 2.0, double(m_index)});
    m_plane = KxSlice(center, grid.xAxis().normalized(), grid.yAxis().normalized());
    requestRender();
    ExNotifiable::notify({ExNotification::SLICE_CHANGED, this});
}

void SliceView::setInverted(bool inverted)
{
    if (inverted != m_isInverted) {
        m_isInverted = inverted;
        requestRender();
        ExNotifiable::notify({ExNotification::COLORMAP_CHANGED, this});
    }
}

void SliceView::renderFrame()
{
    if (m_canvas.isNull()) {
        return;
    }
    const KxVolume *const shown = volume(0);
    if (shown == nullptr) {
        m_canvas->setPicture({}); // nothing stays of a series that has gone
        return;
    }
    const auto [columns, rows, slices] = shown->dimensions();
    const auto [center, width] = shown->defaultWindow();
    QImage picture(columns, rows, QImage::Format_Grayscale8);
    for (int y = 0; y < rows; ++y) {
        uchar *const line = picture.scanLine(y);
        for (int x = 0; x < columns; ++x) {
            const double part = (shown->value(x, y, m_index) - center) / width + 0.5;
            line[x] = uchar(std::lround(255 * std::clamp(part, 0.0, 1.0)));
        }
    }
    if (m_isInverted) {
        picture.invertPixels();
    }
    m_canvas->setPicture(picture);
}

bool SliceView::activate(const ExEvent &event)
{
    ExViewerManager &manager = ExViewerManager::getInstance();
    event.setActivating(manager.activeViewer() != this);
    manager.setActiveViewer(this);
    return false; // others may have the press, too
}

void SliceView::activated()
{
    if (m_canvas) {
        m_canvas->setFocus(); // keys go where the frame is
    }
}

bool SliceView::scroll(const ExEvent &event)
{
    const int before = m_index;
    setSliceIndex(m_index + (event.delta < 0 ? 1 : -1));
    if (m_index != before) {
        takeFollowersAlong();
    }
    return true;
}

void SliceView::scrollTo(const McVec3d &point)
{
    if (const KxVolume *const shown = volume(0)) {
        const McVec3d voxel = shown->voxelToPatient().inverted().map(point);
        setSliceIndex(int(std::lround(voxel.z)));
    }
}

void SliceView::takeFollowersAlong()
{
    const std::string &link = ExViewerDB::TRANSLATION_GROUP;
    const ExViewerDBGroup *const group = ExViewerDB::group(link, this);
    if (group == nullptr || !ExViewerDB::groupEnabled(link)
        || !group->viewerAttributeAsBool(this, ExViewerDB::ATT_ATTACHED)) {
        return;
    }
    const ExViewerDBGroup asItIs = *group; // those who are told may change it
    for (ExBaseViewer *each : asItIs.viewers()) {
        if (each != this && asItIs.viewerAttributeAsBool(each, ExViewerDB::ATT_ATTACHED)) {
            static_cast<SliceView *>(each)->scrollTo(m_plane.center());
        }
    }
}
