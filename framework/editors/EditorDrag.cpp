#include "framework/editors/EditorDrag.h"

#include "framework/editors/EditorOptions.h"
#include "framework/editors/EditorTabBar.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"
#include "platform/toolkit/QxStyleFactory.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace {

/// Marks the place of the drop.
class DropIndicator final : public QWidget
{
public:
    DropIndicator()
    {
        setObjectName(QStringLiteral("EditorDropIndicator"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        constexpr int frame = 2;
        constexpr int transparency = 64;
        const QColor accent = QxStyleFactory::instance().color(QxStyleFactory::ColorRole::Accent);
        QColor veil = accent;
        veil.setAlpha(transparency);
        QPainter painter(this);
        painter.fillRect(rect(), width() <= 2 * frame ? accent : veil);
        painter.setPen(QPen(accent, frame, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
};

/// The line between two tabs, or the whole of the tabs.
QRect markFor(const ExEditorContainer &container, int position)
{
    if (position < 0) {
        return container.rect();
    }
    const QTabBar *const bar = container.tabBar();
    const bool isLast = position >= bar->count();
    const QRect tab = bar->tabRect(isLast ? bar->count() - 1 : position);
    const bool isRight = isLast != (bar->layoutDirection() == Qt::RightToLeft);
    constexpr int width = 4;
    const QRect line(
        isRight ? tab.right() - width + 1 : tab.left(), tab.top(), width, tab.height());
    return line.translated(bar->mapTo(&container, QPoint(0, 0)));
}

} // namespace

void EditorDrag::begin(
    ExEditor &editor, const QPoint &position, const QPoint &grip, QWidget *window)
{
    static QPointer<EditorDrag> current;
    if (current != nullptr) {
        current->cancel();
    }
    current = new EditorDrag(editor, grip, window);
    current->move(position);
}

EditorDrag::EditorDrag(ExEditor &editor, const QPoint &grip, QWidget *window)
    : m_editor(&editor)
    , m_grip(grip)
    , m_window(window)
    , m_hasWindow(window != nullptr)
    , m_windowStart(window == nullptr ? QPoint() : window->pos())
    , m_label(std::make_unique<QLabel>(nullptr, Qt::ToolTip | Qt::WindowTransparentForInput))
{
    m_label->setObjectName(QStringLiteral("EditorDragLabel"));
    m_label->setAttribute(Qt::WA_ShowWithoutActivating);
    constexpr int margin = 8;
    m_label->setMargin(margin);
    m_label->setText(EditorOptions::titleOf(editor));
    ExEditorRegion::setDragging(true);
    QApplication::setOverrideCursor(Qt::ClosedHandCursor);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, this, &EditorDrag::cancel);
    qApp->installEventFilter(this);
}

EditorDrag::~EditorDrag()
{
    end();
}

bool EditorDrag::eventFilter(QObject *receiver, QEvent *event)
{
    if (m_hasEnded || !receiver->isWidgetType()) {
        return false;
    }
    const auto mouse = [event] { return static_cast<QMouseEvent *>(event); };
    const auto isEscape
        = [event] { return static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape; };
    switch (event->type()) {
    case QEvent::MouseMove:
        // A release that went elsewhere, e.g. to another program.
        if ((mouse()->buttons() & Qt::LeftButton) == 0) {
            cancel();
        } else {
            move(mouse()->globalPosition().toPoint());
        }
        return true;
    case QEvent::MouseButtonRelease:
        if (mouse()->button() == Qt::LeftButton) {
            drop(mouse()->globalPosition().toPoint());
        }
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
        return true;
    case QEvent::ShortcutOverride:
        event->setAccepted(isEscape()); // Not to a shortcut, but here.
        return isEscape();
    case QEvent::KeyPress:
        if (isEscape()) {
            cancel();
        }
        return true;
    default:
        return false;
    }
}

EditorDrag::Target EditorDrag::targetAt(const QPoint &position) const
{
    const QWidget *const top = QApplication::topLevelAt(position);
    for (const ExEditorRegion *region : ExEditorRegion::regions()) {
        // The dragged window itself is always under the mouse.
        const bool isCovered = top != nullptr && top != m_window && top != region->window();
        ExEditorContainer *const container
            = isCovered ? nullptr : region->containerAt(region->mapFromGlobal(position));
        if (container == nullptr || !container->acceptsEditor(m_editor)) {
            continue;
        }
        const auto *const bar = qobject_cast<EditorTabBar *>(container->tabBar());
        const QPoint inBar = bar->mapFromGlobal(position);
        const bool isAmongTabs
            = container->count() > 0 && inBar.y() >= 0 && inBar.y() < bar->height();
        return {container, isAmongTabs ? bar->positionAt(inBar) : -1};
    }
    return {};
}

void EditorDrag::move(const QPoint &position)
{
    if (m_editor == nullptr || (m_hasWindow && m_window == nullptr)) {
        cancel();
        return;
    }
    if (m_window != nullptr) {
        m_window->move(position - m_grip);
    }
    constexpr QPoint besidePointer(16, 16);
    m_label->move(position + besidePointer);
    m_label->show();
    showTarget(targetAt(position));
}

void EditorDrag::showTarget(const Target &target)
{
    if (target.container == nullptr) {
        delete m_indicator;
        return;
    }
    if (m_indicator == nullptr) {
        m_indicator = new DropIndicator;
    }
    if (m_indicator->parentWidget() != target.container) {
        m_indicator->setParent(target.container);
    }
    m_indicator->setGeometry(markFor(*target.container, target.position));
    m_indicator->raise();
    m_indicator->show();
}

void EditorDrag::drop(const QPoint &position)
{
    const Target target = m_editor == nullptr ? Target() : targetAt(position);
    const QPointer<ExEditor> editor = m_editor;
    if (target.container != nullptr) {
        ExEditorRegion &region = target.container->region();
        const int subRegion = target.container->subRegionIndex();
        region.insertEditor(editor, subRegion, target.position);
        region.activateEditor(editor, subRegion);
    }
    end();
    if (editor != nullptr && target.container == nullptr) {
        floatAt(position);
    }
}

void EditorDrag::floatAt(const QPoint &position)
{
    if (m_hasWindow) {
        return; // It is there already.
    }
    const QWidget *const widget = m_editor->widgetForMonitor(0);
    const QScreen *const screen = QGuiApplication::screenAt(position);
    QRect place(position - m_grip, widget == nullptr ? QSize() : widget->size());
    if (screen != nullptr) {
        const QRect area = screen->availableGeometry();
        // A panel as high as the window it came from would cover the images.
        constexpr int mostPercent = 60;
        constexpr int whole = 100;
        place.setSize(place.size().boundedTo(area.size() * mostPercent / whole));
        place.moveTo(std::clamp(place.x(), area.left(), area.right() + 1 - place.width()),
            std::clamp(place.y(), area.top(), area.bottom() + 1 - place.height()));
    }
    m_editor->setAbsoluteFloatingGeometry(place);
    m_editor->show(true);
}

void EditorDrag::cancel()
{
    if (m_window != nullptr) {
        m_window->move(m_windowStart);
    }
    end();
}

void EditorDrag::end()
{
    if (m_hasEnded) {
        return;
    }
    m_hasEnded = true;
    qApp->removeEventFilter(this);
    QApplication::restoreOverrideCursor();
    delete m_indicator;
    m_label.reset();
    ExEditorRegion::setDragging(false);
    deleteLater();
}
