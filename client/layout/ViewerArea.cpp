#include "client/layout/ViewerArea.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QUrl>

const QString ViewerArea::seriesMimeType = QStringLiteral("application/x-movara-series");

ViewerArea::ViewerArea(QWidget *parent)
    : QWidget(parent)
{
    setAcceptDrops(true);
    setAutoFillBackground(true);
}

void ViewerArea::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Q_EMIT resized();
}

QStringList ViewerArea::paths(const QMimeData &dragged)
{
    QStringList paths;
    for (const QUrl &url : dragged.urls()) {
        if (url.isLocalFile()) {
            paths += url.toLocalFile();
        }
    }
    return paths;
}

void ViewerArea::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(seriesMimeType) || !paths(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void ViewerArea::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    if (event->mimeData()->hasFormat(seriesMimeType)) {
        const QString uid = QString::fromUtf8(event->mimeData()->data(seriesMimeType));
        const QPointer<QWidget> target = childAt(event->position().toPoint());
        // Opening may ask the user, which the drag must not wait for.
        QMetaObject::invokeMethod(
            this, [this, uid, target] { Q_EMIT seriesDropped(uid, target); }, Qt::QueuedConnection);
        return;
    }
    if (const QStringList dropped = paths(*event->mimeData()); !dropped.isEmpty()) {
        Q_EMIT pathsDropped(dropped);
    }
}
