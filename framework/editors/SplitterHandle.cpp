#include "framework/editors/SplitterHandle.h"

#include "framework/editors/ExSplitter.h"
#include "framework/editors/SplitterButton.h"

SplitterHandle::SplitterHandle(Qt::Orientation orientation, ExSplitter *splitter)
    : QSplitterHandle(orientation, splitter)
    , m_button(new SplitterButton(this))
{
    m_button->hide();
    connect(m_button, &SplitterButton::clicked, splitter,
        [this, splitter] { splitter->toggleBy(*this); });
}

void SplitterHandle::resizeEvent(QResizeEvent *event)
{
    QSplitterHandle::resizeEvent(event);
    const bool isHorizontal = orientation() == Qt::Horizontal;
    m_button->setMaximumSize(
        isHorizontal ? width() : QWIDGETSIZE_MAX, isHorizontal ? QWIDGETSIZE_MAX : height());
    QRect place(QPoint(), m_button->sizeHint().boundedTo(size()));
    place.moveCenter(rect().center());
    m_button->setGeometry(place);
}
