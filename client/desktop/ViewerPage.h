#pragma once

#include <QWidget>

class QSplitter;
class ViewerArea;

/// What the viewers' main window of one monitor shows: the viewer area, with places for panels left
/// and right of it and below it. Panels stay their owner's: one can be taken elsewhere, and a page
/// that goes leaves them without a parent.
class ViewerPage final : public QWidget
{
    Q_OBJECT

public:
    enum class Place { Left, Right, Below };

    ViewerPage();
    ~ViewerPage() override;

    [[nodiscard]] ViewerArea &area() const { return *m_area; }
    /// Shows a panel beside the viewers, after those that stand in the same place. Nothing when it
    /// stands in this page already. @param size its width, below the viewers its height, in pixels.
    void addPanel(QWidget &panel, Place place, int size);

private:
    ViewerArea *m_area;
    QSplitter *m_across; ///< left panels, m_down, right panels
    QSplitter *m_down; ///< area, panels below
};
