#pragma once

#include <QWidget>

#include <array>
#include <optional>

class ExEditorRegion;
class ExSplitter;
class ViewerArea;

/// What the viewers' window of one monitor shows: the viewer area, with regions for panels left and
/// right of it and below it. A region without panels is hidden, except while a panel is dragged.
/// Whatever the window does, regions keep the extent that the user gave them, and the viewers get
/// the rest. Panels are not the page's: one that goes leaves them without a place.
class ViewerPage final : public QWidget
{
    Q_OBJECT

public:
    enum Place { Left, Right, Below, numPlaces };

    /// Of a region: the width of those beside the viewers, the height of the one below.
    struct Extent
    {
        int pixels = 0;
        bool isCollapsed = false;

        friend bool operator==(const Extent &, const Extent &) = default;
    };

    ViewerPage();
    ~ViewerPage() override;

    [[nodiscard]] ViewerArea &area() const { return *m_area; }
    [[nodiscard]] ExEditorRegion &region(Place place) const { return *m_regions[place]; }
    /// Nothing for a region of others.
    [[nodiscard]] std::optional<Place> placeOf(const ExEditorRegion *region) const;
    /// What the regions are called in menus, in the present language. @param number of the page
    /// among several, from 1; 0 for the only one.
    void setNumber(int number);

    [[nodiscard]] static Extent usualExtent(Place place);
    [[nodiscard]] Extent extent(Place place) const { return m_extents[place]; }
    void setExtent(Place place, const Extent &extent);

Q_SIGNALS:
    /// The user has made a region larger or smaller, or collapsed it.
    void extentsChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void build();
    /// Takes over what the user did to a handle of a splitter.
    void note(const ExSplitter &splitter, int handle);
    /// Gives the regions their extents and the viewers the rest.
    void share();
    void shareAlong(ExSplitter &splitter, const QList<QWidget *> &panes);
    void setSizes(ExSplitter &splitter, const QList<QWidget *> &panes);
    [[nodiscard]] int wantedExtent(Place place, int space) const;

    ViewerArea *m_area;
    ExSplitter *m_across; ///< left region, m_down, right region
    ExSplitter *m_down; ///< area, region below
    std::array<ExEditorRegion *, numPlaces> m_regions{};
    std::array<Extent, numPlaces> m_extents{};
    /// Regions that are collapsed and whose splitter does not know yet how large they come back.
    std::array<bool, numPlaces> m_isToOpen{};
    bool m_isSharing = false;
};
