#pragma once

#include <QTabBar>
#include <QToolButton>

/// Tab bar whose tabs can also be dragged out of it.
class EditorTabBar final : public QTabBar
{
    Q_OBJECT

public:
    explicit EditorTabBar(QWidget *parent = nullptr);

    /// Where a tab dropped at @p position would come to stand, 0 to count().
    [[nodiscard]] int positionAt(const QPoint &position) const;

Q_SIGNALS:
    /// The mouse, its left button held, has left the bar with a tab. @param position on the desktop
    void draggedOut(int index, const QPoint &position);
    /// The options of a tab are asked for. @param position on the desktop
    void optionsRequested(int index, const QPoint &position);

protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    bool m_isPressed = false;
};

/// The small button with three dots.
class EditorOptionsButton final : public QToolButton
{
public:
    explicit EditorOptionsButton(QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
};
