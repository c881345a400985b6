#include "client/panels/SearchField.h"

#include "client/application/SvgIconEngine.h"

#include <QAction>
#include <QKeyEvent>

SearchField::SearchField(const QString &placeholder, QWidget &list)
    : m_list(list)
{
    setObjectName(QStringLiteral("Search"));
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setToolTip(tr("Shows only what holds all these words; Escape shows everything again"));
    addClearButton();
}

void SearchField::addClearButton()
{
    // Not the toolkit's: it looks for a picture in all folders of the desktop's themes.
    QAction *const button
        = addAction(QIcon(new SvgIconEngine(QStringLiteral("close"))), QLineEdit::TrailingPosition);
    button->setText(tr("Clear"));
    button->setVisible(false);
    connect(button, &QAction::triggered, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, button,
        [button](const QString &text) { button->setVisible(!text.isEmpty()); });
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
