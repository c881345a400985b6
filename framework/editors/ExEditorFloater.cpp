#include "framework/editors/ExEditorFloater.h"

#include "framework/editors/EditorDrag.h"
#include "framework/editors/ExEditor.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExHotKeys.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace {

/// The strip at the top: drags the window, a double click docks it. The title bar belongs to the
/// desktop, which does not tell programs what the user does there.
class FloaterHandle final : public QWidget
{
public:
    explicit FloaterHandle(ExEditorFloater &window)
        : QWidget(&window)
        , m_window(window)
    {
        setObjectName(QStringLiteral("EditorHandle"));
        setCursor(Qt::OpenHandCursor);
        setToolTip(ExEditorFloater::tr("Drag to an editor area to dock the panel there"));
        auto *const hint = new QLabel(ExEditorFloater::tr("Drag here to dock"), this);
        hint->setAttribute(Qt::WA_TransparentForMouseEvents);
        hint->setForegroundRole(QPalette::PlaceholderText);
        auto *const button = new QToolButton(this);
        button->setObjectName(QStringLiteral("DockButton"));
        button->setText(ExEditorFloater::tr("Dock"));
        button->setToolTip(ExEditorFloater::tr("Put the panel back where it was"));
        button->setCursor(Qt::ArrowCursor);
        constexpr int leastTarget = 24;
        button->setMinimumSize(leastTarget, leastTarget);
        QObject::connect(button, &QToolButton::clicked, &window, &ExEditorFloater::dock);
        auto *const layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(hint, 1);
        layout->addWidget(button);
    }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        m_isPressed = event->button() == Qt::LeftButton;
        m_pressed = event->globalPosition().toPoint();
    }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        const QPoint position = event->globalPosition().toPoint();
        const bool isFar
            = (position - m_pressed).manhattanLength() >= QApplication::startDragDistance();
        ExEditor *const editor = m_window.editor();
        if (m_isPressed && isFar && editor != nullptr) {
            m_isPressed = false;
            EditorDrag::begin(*editor, position, m_pressed - m_window.pos(), &m_window);
        }
    }

    void mouseReleaseEvent(QMouseEvent * /*event*/) override { m_isPressed = false; }

    void mouseDoubleClickEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton) {
            m_window.dock();
        }
    }

private:
    ExEditorFloater &m_window;
    QPoint m_pressed;
    bool m_isPressed = false;
};

} // namespace

ExEditorFloater::ExEditorFloater(ExEditor &editor, int margin, QWidget *parent)
    : QWidget(parent, Qt::Tool)
    , m_editor(&editor)
    , m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("Floater.") + editor.name());
    setAttribute(Qt::WA_DeleteOnClose);
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->setSpacing(margin);
    m_layout->addWidget(new FloaterHandle(*this));
    for (ExTool *tool : ExHotKeys::hotKeyTools()) {
        if (QAction *const action = ExActionUI::createAction(*tool)) {
            addAction(action);
        }
    }
}

ExEditorFloater::~ExEditorFloater()
{
    m_isEnding = true;
    if (isInUse()) {
        m_editor->dockFloater(false);
    }
    release();
}

ExEditor *ExEditorFloater::editor() const
{
    return m_editor;
}

bool ExEditorFloater::isInUse() const
{
    return m_editor != nullptr && m_editor->floater() == this;
}

void ExEditorFloater::setContent(QWidget *widget, const QString &title)
{
    setWindowTitle(title);
    if (widget == nullptr) {
        return;
    }
    m_content = widget;
    m_layout->addWidget(widget, 1);
    widget->show();
    QObject::connect(widget, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
}

void ExEditorFloater::dock()
{
    close();
}

void ExEditorFloater::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (isInUse()) {
        m_editor->setAbsoluteFloatingGeometry(geometry());
        m_editor->dockFloater(false);
    }
    release();
}

/// The panel stays alive, and comes back with the next show.
void ExEditorFloater::release()
{
    if (auto *const content = qobject_cast<QWidget *>(std::exchange(m_content, nullptr))) {
        QObject::disconnect(content, nullptr, this, nullptr);
        content->setParent(nullptr);
    }
}

void ExEditorFloater::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (!event->removed() || m_content == nullptr || event->child() != m_content) {
        return;
    }
    // Docked elsewhere, taken by another window, or destroyed.
    m_content = nullptr;
    QObject::disconnect(event->child(), nullptr, this, nullptr);
    if (m_isEnding) {
        return;
    }
    if (isInUse()) {
        m_editor->setAbsoluteFloatingGeometry(geometry());
        m_editor->windowGone(this);
    }
    // Whoever takes the panel out does not close the window with it; it goes by itself then, also
    // when a dialog comes next, in whose loop it is not deleted yet.
    QMetaObject::invokeMethod(this, &QWidget::hide, Qt::QueuedConnection);
    deleteLater();
}
