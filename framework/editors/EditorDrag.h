#pragma once

#include <QLabel>
#include <QObject>
#include <QPointer>

#include <memory>

class ExEditor;
class ExEditorContainer;

/// An editor under the mouse, from where its tab or handle was left until the button is released:
/// over a sub-region it is docked there, elsewhere it floats. Escape leaves all as it was. Takes
/// the mouse events of the whole application meanwhile. One at a time; deletes itself.
class EditorDrag final : public QObject
{
    Q_OBJECT

public:
    /// @param position of the mouse on the desktop. @param grip the mouse's place in the floating
    /// window. @param window the window in which the editor floats already; null for a docked one.
    static void begin(
        ExEditor &editor, const QPoint &position, const QPoint &grip, QWidget *window);
    ~EditorDrag() override;

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    /// Where the editor would go: the tabs, and the place among them; -1 for the end.
    struct Target
    {
        ExEditorContainer *container = nullptr;
        int position = -1;
    };

    EditorDrag(ExEditor &editor, const QPoint &grip, QWidget *window);
    [[nodiscard]] Target targetAt(const QPoint &position) const;
    void move(const QPoint &position);
    void showTarget(const Target &target);
    void drop(const QPoint &position);
    void floatAt(const QPoint &position);
    void cancel();
    void end();

    QPointer<ExEditor> m_editor;
    QPoint m_grip;
    QPointer<QWidget> m_window;
    bool m_hasWindow;
    QPoint m_windowStart;
    std::unique_ptr<QLabel> m_label;
    QPointer<QWidget> m_indicator;
    bool m_hasEnded = false;
};
