#include "client/panels/ViewMessage.h"

#include <QAbstractItemView>
#include <QEvent>

ViewMessage::ViewMessage(QAbstractItemView &view)
    : QLabel(view.viewport())
{
    constexpr int margin = 16;
    setMargin(margin);
    setWordWrap(true);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setForegroundRole(QPalette::PlaceholderText);
    setAutoFillBackground(false);
    view.viewport()->installEventFilter(this);
    hide();
}

void ViewMessage::setMessage(const QString &text)
{
    setText(text);
    setGeometry(parentWidget()->rect()); // Scrolling moves it.
    setVisible(!text.isEmpty());
}

bool ViewMessage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QLabel::eventFilter(watched, event);
}
