#include "client/desktop/ViewerPage.h"

#include "client/layout/ViewerArea.h"

#include <QSplitter>
#include <QVBoxLayout>

namespace {

/// To share out before the page has a size of its own.
constexpr int usualLength = 1400;

/// Gives the new panel its size, which the widget in the middle gives up.
void setSize(QSplitter &splitter, int index, int middle, int size)
{
    QList<int> sizes = splitter.sizes();
    if (sizes[middle] <= size) {
        sizes[middle] = usualLength;
    }
    sizes[middle] -= size;
    sizes[index] = size;
    splitter.setSizes(sizes);
}

} // namespace

ViewerPage::ViewerPage()
    : m_area(new ViewerArea)
    , m_across(new QSplitter(Qt::Horizontal))
    , m_down(new QSplitter(Qt::Vertical))
{
    setObjectName(QStringLiteral("ViewerPage"));
    m_down->addWidget(m_area);
    m_across->addWidget(m_down);
    for (QSplitter *splitter : {m_across, m_down}) {
        splitter->setCollapsible(0, false);
        splitter->setStretchFactor(0, 1);
    }
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_across);
}

ViewerPage::~ViewerPage()
{
    for (const QSplitter *splitter : {m_across, m_down}) {
        for (int i = splitter->count(); i-- > 0;) {
            QWidget *const widget = splitter->widget(i);
            if (widget != m_down && widget != m_area) {
                widget->setParent(nullptr);
            }
        }
    }
}

void ViewerPage::addPanel(QWidget &panel, Place place, int size)
{
    if (isAncestorOf(&panel)) {
        return;
    }
    QSplitter &splitter = place == Place::Below ? *m_down : *m_across;
    const int index = place == Place::Left ? m_across->indexOf(m_down) : splitter.count();
    splitter.insertWidget(index, &panel);
    panel.show();
    setSize(splitter, index, place == Place::Below ? 0 : m_across->indexOf(m_down), size);
}
