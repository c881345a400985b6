// Where dialogs and other named windows are.
#include "framework/monitors/ExMonitorManager.h"

#include "framework/monitors/ExMonitorManagerPrivate.h"
#include "framework/monitors/MonitorMath.h"
#include "framework/monitors/MonitorSettings.h"
#include "platform/toolkit/QxApplication.h"
#include "platform/toolkit/QxNotifyHook.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace {

/// From a point to the nearest one of a rectangle, squared; 0 inside.
qint64 distance(const QRect &rect, const QPoint &point)
{
    const qint64 dx = qint64{point.x()} - std::clamp(point.x(), rect.left(), rect.right());
    const qint64 dy = qint64{point.y()} - std::clamp(point.y(), rect.top(), rect.bottom());
    return dx * dx + dy * dy;
}

/// The screen with a point, or nearest to it; null without any screen.
const QScreen *screenNearest(const QPoint &point)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const auto nearest = std::min_element(
        screens.begin(), screens.end(), [&point](const QScreen *a, const QScreen *b) {
            return distance(a->geometry(), point) < distance(b->geometry(), point);
        });
    return nearest == screens.end() ? nullptr : *nearest;
}

/// Gives new windows the font of their monitor, and new dialogs their place.
class WindowHook final : public QxNotifyHook
{
public:
    bool hookNotify(QObject *receiver, QEvent *event) override
    {
        if (event->type() == QEvent::Polish && receiver->isWidgetType()) {
            setFont(*static_cast<QWidget *>(receiver));
        } else if (event->type() == QEvent::Show && !event->spontaneous()) {
            place(qobject_cast<QDialog *>(receiver));
        }
        return false;
    }

private:
    /// Windows do not take their parent's font by themselves, other widgets do.
    static void setFont(QWidget &widget)
    {
        const QWidget *const parent = widget.QWidget::parentWidget();
        if (!widget.isWindow() || parent == nullptr || widget.testAttribute(Qt::WA_SetFont)) {
            return;
        }
        if (const QWidget *const monitor = ExMonitorWidget::parentWidget(parent->window())) {
            widget.setFont(monitor->font());
        }
    }

    /// Dialogs that were put somewhere already stay there.
    static void place(QDialog *dialog)
    {
        if (dialog != nullptr && !dialog->testAttribute(Qt::WA_Moved)) {
            ExMonitorManager::adjustDialogPosition(dialog);
        }
    }
};

} // namespace

void ExMonitorManager::widgetGeometryStore(const QWidget &widget)
{
    if (!widget.objectName().isEmpty()) {
        MonitorSettings::geometry(widget.objectName()).change(widget.geometry());
    }
}

void ExMonitorManager::widgetGeometryRestore(
    QWidget &widget, const QRect &fallback, int minWidth, int minHeight)
{
    if (widget.objectName().isEmpty()) {
        return;
    }
    const QRect stored = MonitorSettings::storedGeometry(widget.objectName());
    int monitor = primaryMonitor();
    if (stored.isValid()) {
        monitor = d->set.monitorAt(stored.center());
    } else if (const QWidget *const parent = widget.parentWidget()) {
        monitor = d->set.monitorAt(parent->window()->geometry().center());
    }
    const QRect rect = d->set.rect(monitor);
    const QRect area = rect.isValid() ? rect : d->set.total;
    if (MonitorMath::isReachable(stored, area)) {
        widget.setGeometry(stored);
    } else if (fallback.isValid()) {
        widget.setGeometry(fallback);
    } else {
        const QSize size
            = widget.sizeHint().expandedTo({std::max(minWidth, 1), std::max(minHeight, 1)});
        widget.setGeometry(
            area.isValid() ? MonitorMath::centred(size, area) : QRect(QPoint(0, 0), size));
    }
}

void ExMonitorManager::positionDialog(QDialog *dialog, const QPoint &centre)
{
    if (dialog == nullptr) {
        return;
    }
    // Of a dialog that was never shown the toolkit may answer with a frame one pixel too small.
    const QSize frame = dialog->frameGeometry().size().expandedTo(dialog->size());
    const int width = frame.width();
    const int height = frame.height();
    QRect place(centre.x() - width / 2, centre.y() - height / 2, width, height);
    const QScreen *const screen = screenNearest(place.topLeft());
    if (screen == nullptr) {
        return;
    }
    // Halves of the screen's bottom and right edges, not of its middle: on a screen away from the
    // desktop's origin the dialog comes to stand nearer to the origin. Clients rely on it.
    const QRect area = screen->geometry();
    const int top = area.bottom() / 2 - height / 2;
    const int left = area.right() / 2 - width / 2;
    if (area.top() > place.top()) {
        place.moveTop(top);
    }
    if (area.bottom() < place.bottom()) {
        place.moveTop(top);
    }
    if (area.left() > place.left()) {
        place.moveLeft(left);
    }
    if (area.right() < place.right()) {
        place.moveLeft(left);
    }
    dialog->move(place.topLeft());
}

void ExMonitorManager::adjustDialogPosition(QDialog *dialog)
{
    const QWidget *const parent = dialog == nullptr ? nullptr : dialog->parentWidget();
    if (parent != nullptr) {
        const QSize frame = parent->frameGeometry().size();
        positionDialog(dialog, parent->mapToGlobal(QPoint(frame.width() / 2, frame.height() / 2)));
    }
}

QRect ExMonitorManager::defaultGeometry(int monitor, int percent) const
{
    return MonitorMath::middle(d->set.rect(monitor), percent);
}

void ExMonitorManager::installAutomaticFontAndDialogAdjustment()
{
    static WindowHook hook;
    QxApplication::installHookNotify(&hook);
}
