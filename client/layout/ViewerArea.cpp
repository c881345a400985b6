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

void ViewerArea::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasFormat(seriesMimeType) || event->mimeData()->hasUrls()) {
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
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls()) {
        if (url.isLocalFile()) {
            paths += url.toLocalFile();
        }
    }
    if (!paths.isEmpty()) {
        Q_EMIT pathsDropped(paths);
    }
}
