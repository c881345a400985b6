#include "framework/viewers/ExBaseViewerRenderWidget.h"

#include "framework/input/ExEventHandler.h"
#include "framework/tools/ExModal.h"
#include "framework/viewers/ExBaseViewer.h"
#include "platform/render/Kx.h"

#include <QEvent>
#include <QPointer>

#include <array>

namespace {

/// The toolkit's cursors in the order of Kx::KxCursorShape, without the default one.
constexpr std::array toolkitCursors{Qt::ArrowCursor, Qt::CrossCursor, Qt::PointingHandCursor,
    Qt::OpenHandCursor, Qt::ClosedHandCursor, Qt::SizeAllCursor, Qt::SizeHorCursor,
    Qt::SizeVerCursor, Qt::SizeFDiagCursor, Qt::SizeBDiagCursor, Qt::IBeamCursor,
    Qt::ForbiddenCursor, Qt::BusyCursor, Qt::BlankCursor};
static_assert(toolkitCursors.size() == Kx::BlankCursor);

bool isMouse(QEvent::Type type)
{
    return type == QEvent::MouseMove || type == QEvent::MouseButtonPress
        || type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick;
}

bool isInput(QEvent::Type type)
{
    return isMouse(type) || type == QEvent::Wheel || type == QEvent::KeyPress
        || type == QEvent::KeyRelease;
}

} // namespace

ExBaseViewerRenderWidget::ExBaseViewerRenderWidget(QWidget *parent)
    : QWidget(parent)
{
    setMouseTracking(true);
}

ExBaseViewerRenderWidget::~ExBaseViewerRenderWidget() = default;

void ExBaseViewerRenderWidget::propertyUpdate()
{
    const ExBaseViewer *const drawing = viewer();
    setProperty("squish_isFinalImage", drawing == nullptr || drawing->isFinal());
}

bool ExBaseViewerRenderWidget::event(QEvent *event)
{
    if (isInput(event->type()) && isEnabled() && offerToModalTools()) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool ExBaseViewerRenderWidget::offerToModalTools()
{
    const ExBaseViewer *const drawing = viewer();
    const ExEventHandler *const handler = drawing == nullptr ? nullptr : drawing->eventHandler();
    const ExEvent last = handler == nullptr ? ExEvent() : handler->event(this);
    if (last.type == ExSignal::NO_SIGNAL) {
        return false;
    }
    const QPointer<ExBaseViewerRenderWidget> self(this);
    int shape = Kx::DefaultCursor;
    const bool isUsed = ExModal::offer(last, shape);
    if (self.isNull()) {
        return true; // A tool has closed the viewer.
    }
    if (last.isMouse()) {
        showCursor(shape);
    }
    return isUsed;
}

void ExBaseViewerRenderWidget::showCursor(int shape)
{
    const bool isOfTool = shape > Kx::DefaultCursor && shape <= Kx::BlankCursor;
    if (isOfTool && !m_showsToolCursor && testAttribute(Qt::WA_SetCursor)) {
        m_ownCursor = cursor();
    }
    if (isOfTool) {
        setCursor(toolkitCursors.at(static_cast<std::size_t>(shape - 1)));
    } else if (m_showsToolCursor && m_ownCursor) {
        setCursor(*m_ownCursor);
        m_ownCursor.reset();
    } else if (m_showsToolCursor) {
        unsetCursor();
    }
    m_showsToolCursor = isOfTool;
}
