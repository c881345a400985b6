#include "framework/application/ExTempCursorHandle.h"

#include <QApplication>
#include <QCursor>

ExTempCursorHandle::ExTempCursorHandle()
    : m_isOverriding(QApplication::overrideCursor() != nullptr)
{
    if (m_isOverriding) {
        QApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
    }
}

ExTempCursorHandle::~ExTempCursorHandle()
{
    if (m_isOverriding) {
        QApplication::restoreOverrideCursor();
    }
}
