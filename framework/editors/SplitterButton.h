#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QToolButton>

/// The arrow on a splitter's handle. Keeps the mouse to itself, so that it cannot drag the handle.
/// Painted only while QxStyleFactory::showSplitterButton() says so; clicks count in any case. Owned
/// by its SplitterHandle.
class MOVARA_FRAMEWORK_EXPORT SplitterButton : public QToolButton
{
    Q_OBJECT

public:
    explicit SplitterButton(QWidget *parent);

    /// Shows @p arrow and takes the object name that goes with it, for style sheets:
    /// "SplitterButton.Horizontal" for left and right, "SplitterButton.Vertical" for up and down.
    void setArrow(Qt::ArrowType arrow);
    /// Takes its colours from the current style.
    void updateColors();
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
