#include "framework/application/ExTempCursorHandle.h"

#include <QApplication>
#include <QCursor>

ExTempCursorHandle::ExTempCursorHandle()
    : m_cursor(QApplication::overrideCursor())
{
    if (m_cursor != nullptr) {
        QApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
    }
}

ExTempCursorHandle::~ExTempCursorHandle()
{
    if (m_cursor != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}
