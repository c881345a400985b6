#pragma once

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>

/// Drags something onto a place of a widget and drops it there. @return whether both were accepted.
inline bool dragAndDrop(const QMimeData &dragged, QWidget &target, const QPoint &place)
{
    QDragEnterEvent enter(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    QDropEvent drop(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    return enter.isAccepted() && drop.isAccepted();
}
