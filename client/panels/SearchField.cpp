#include "client/panels/SearchField.h"

#include <QKeyEvent>

SearchField::SearchField(const QString &placeholder, QWidget &list)
    : m_list(list)
{
    setObjectName(QStringLiteral("Search"));
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setToolTip(tr("Shows only what holds all these words; Escape shows everything again"));
    setClearButtonEnabled(true);
}

bool SearchField::event(QEvent *event)
{
    // Escape is a shortcut of the window otherwise, e.g. to leave a tool.
    if (event->type() == QEvent::ShortcutOverride && !text().isEmpty()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
    } else if (event->key() == Qt::Key_Down) {
        m_list.setFocus(Qt::TabFocusReason);
    } else {
        QLineEdit::keyPressEvent(event);
    }
}
