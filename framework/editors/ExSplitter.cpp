#include "framework/editors/ExSplitter.h"

#include "framework/editors/SplitterButton.h"
#include "framework/editors/SplitterHandle.h"
#include "platform/toolkit/QxStyleFactory.h"

#include <QEvent>

#include <algorithm>

class ExSplitter::Private
{
public:
    int firstSize = 0;
    int lastSize = 0;
};

ExSplitter::ExSplitter(Qt::Orientation orientation, QWidget *parent, const char *name)
    : QSplitter(orientation, parent)
    , d(std::make_unique<Private>())
{
    setObjectName(QString::fromUtf8(name));
    setOpaqueResize(false);
    connect(this, &QSplitter::splitterMoved, this, &ExSplitter::updateHandles);
    connect(&QxStyleFactory::instance(), &QxStyleFactory::paletteChanged, this,
        &ExSplitter::paletteChanged);
}

ExSplitter::~ExSplitter() = default;

QSplitterHandle *ExSplitter::createHandle()
{
    constexpr int handlePixels = 10;
    setHandleWidth(handlePixels);
    return new SplitterHandle(orientation(), this);
}

int ExSplitter::extent(const QSize &size) const
{
    return orientation() == Qt::Horizontal ? size.width() : size.height();
}

int ExSplitter::paneSize(int index) const
{
    return sizes().value(index);
}

bool ExSplitter::isCollapsible(Dock dock) const
{
    return count() > 0 && QSplitter::isCollapsible(dock == DockFirst ? 0 : count() - 1);
}

bool ExSplitter::isCollapsed(Dock dock) const
{
    return count() < 2 || paneSize(dock == DockFirst ? 0 : count() - 1) == 0;
}

void ExSplitter::setSizes(const QList<int> &sizes)
{
    QSplitter::setSizes(sizes);
    updateHandles();
}

void ExSplitter::setOrientation(Qt::Orientation orientation)
{
    QSplitter::setOrientation(orientation);
    updateHandles();
}

void ExSplitter::toggle(Dock dock)
{
    if (count() >= 2 && isCollapsible(dock)) {
        move(dock);
    }
}

void ExSplitter::toggleBy(const SplitterHandle &handle)
{
    if (count() < 2) {
        return;
    }
    const bool isFirst = count() == 2 ? isCollapsible(DockFirst) : this->handle(1) == &handle;
    move(isFirst ? DockFirst : DockLast);
}

void ExSplitter::move(Dock dock)
{
    const bool isOpen = !isCollapsed(dock);
    if (dock == DockFirst) {
        moveSplitter(isOpen ? 0 : d->firstSize, 1);
        return;
    }
    const int whole = extent(size());
    moveSplitter(isOpen ? whole : whole - d->lastSize - handleWidth(), count() - 1);
}

void ExSplitter::updateHandles()
{
    rememberSizes();
    updateButtons();
}

void ExSplitter::rememberSizes()
{
    if (count() < 2) {
        return;
    }
    const auto remember = [this](int index, int &remembered) {
        const int current = paneSize(index);
        const int ownMinimum = extent(widget(index)->minimumSize());
        // Without a minimum of its own the pane has the one that the splitter keeps to as well.
        const int minimum = ownMinimum > 0 ? ownMinimum : extent(widget(index)->minimumSizeHint());
        remembered = std::max(current > 0 ? current : remembered, minimum);
    };
    remember(0, d->firstSize);
    remember(count() - 1, d->lastSize);
}

void ExSplitter::updateButtons()
{
    for (int i = 1; i < count(); ++i) {
        updateButton(i);
    }
}

void ExSplitter::updateButton(int index)
{
    auto *const handle = qobject_cast<SplitterHandle *>(this->handle(index));
    if (handle == nullptr) {
        return;
    }
    const bool isOuter = index == 1 || index == count() - 1;
    handle->button()->setVisible(isOuter);
    if (!isOuter) {
        return;
    }
    const bool pointsBack
        = QSplitter::isCollapsible(index - 1) ? paneSize(index - 1) > 0 : paneSize(index) == 0;
    const bool isHorizontal = orientation() == Qt::Horizontal;
    handle->button()->setArrow(pointsBack ? (isHorizontal ? Qt::LeftArrow : Qt::UpArrow)
                                          : (isHorizontal ? Qt::RightArrow : Qt::DownArrow));
}

void ExSplitter::paletteChanged()
{
    for (int i = 1; i < count(); ++i) {
        if (auto *const handle = qobject_cast<SplitterHandle *>(this->handle(i))) {
            handle->button()->updateColors();
        }
    }
}

bool ExSplitter::event(QEvent *event)
{
    const bool result = QSplitter::event(event);
    // Panes that come, go or are first laid out change the arrows, but no size the user chose.
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Resize:
    case QEvent::LayoutRequest:
    case QEvent::ChildRemoved:
        updateButtons();
        break;
    default:
        break;
    }
    return result;
}
