#include "client/layout/ViewerArea.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
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
        Q_EMIT seriesDropped(QString::fromUtf8(event->mimeData()->data(seriesMimeType)),
            childAt(event->position().toPoint()));
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
