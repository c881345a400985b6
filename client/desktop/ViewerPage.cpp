#include "client/desktop/ViewerPage.h"

#include "client/layout/ViewerArea.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"
#include "framework/editors/ExSplitter.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

struct PlaceRow
{
    const char *name;
    const char *title;
    Qt::Orientation stacking;
    int subRegions;
    int extent; ///< pixels at first
};

constexpr std::array<PlaceRow, ViewerPage::numPlaces> places{{
    {"Left", QT_TRANSLATE_NOOP("ViewerPage", "Left"), Qt::Vertical, 2, 288},
    {"Right", QT_TRANSLATE_NOOP("ViewerPage", "Right"), Qt::Vertical, 2, 336},
    {"Below", QT_TRANSLATE_NOOP("ViewerPage", "Below"), Qt::Horizontal, 2, 224},
}};

QString subRegionTitle(Qt::Orientation stacking, int subRegion)
{
    if (stacking == Qt::Vertical) {
        return subRegion == 0 ? ViewerPage::tr("Upper part") : ViewerPage::tr("Lower part");
    }
    return subRegion == 0 ? ViewerPage::tr("Left part") : ViewerPage::tr("Right part");
}

bool isEmpty(const ExEditorRegion &region)
{
    for (int i = 0; i < region.subRegionCount(); ++i) {
        if (region.editorContainer(i)->count() > 0) {
            return false;
        }
    }
    return true;
}

} // namespace

ViewerPage::ViewerPage()
    : m_area(new ViewerArea)
    , m_across(new ExSplitter(Qt::Horizontal, nullptr, "PanelsAcross"))
    , m_down(new ExSplitter(Qt::Vertical, nullptr, "PanelsDown"))
{
    setObjectName(QStringLiteral("ViewerPage"));
    build();
    setNumber(0);
}

ViewerPage::~ViewerPage() = default;

void ViewerPage::build()
{
    for (int i = 0; i < numPlaces; ++i) {
        const auto place = static_cast<Place>(i);
        const PlaceRow &row = places[place];
        auto *const region = new ExEditorRegion(row.stacking, row.subRegions, this);
        region->setObjectName(QLatin1String(row.name));
        m_regions[place] = region;
        m_extents[place] = usualExtent(place);
    }
    m_across->addWidget(m_regions[Left]);
    m_across->addWidget(m_down);
    m_across->addWidget(m_regions[Right]);
    m_down->addWidget(m_area);
    m_down->addWidget(m_regions[Below]);
    m_across->setCollapsible(1, false);
    m_across->setStretchFactor(1, 1);
    m_down->setCollapsible(0, false);
    m_down->setStretchFactor(0, 1);
    for (ExSplitter *splitter : {m_across, m_down}) {
        connect(splitter, &QSplitter::splitterMoved, this,
            [this, splitter](int /*position*/, int handle) { note(*splitter, handle); });
    }
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_across);
    for (ExEditorRegion *region : m_regions) {
        region->setHiddenWhenEmpty(true);
        region->installEventFilter(this);
        connect(region, &ExEditorRegion::editorAdded, this, &ViewerPage::share);
    }
}

std::optional<ViewerPage::Place> ViewerPage::placeOf(const ExEditorRegion *region) const
{
    const auto *const found = std::find(m_regions.begin(), m_regions.end(), region);
    return found == m_regions.end() ? std::nullopt
                                    : std::optional(static_cast<Place>(found - m_regions.begin()));
}

void ViewerPage::setNumber(int number)
{
    for (int i = 0; i < numPlaces; ++i) {
        const PlaceRow &row = places[static_cast<std::size_t>(i)];
        ExEditorRegion &region = *m_regions[static_cast<std::size_t>(i)];
        region.setWindowTitle(
            number == 0 ? tr(row.title) : tr("%1 (monitor %2)").arg(tr(row.title)).arg(number));
        for (int sub = 0; sub < region.subRegionCount(); ++sub) {
            region.setSubRegionTitle(sub, subRegionTitle(row.stacking, sub));
        }
    }
}

ViewerPage::Extent ViewerPage::usualExtent(Place place)
{
    return {places[place].extent, false};
}

void ViewerPage::setExtent(Place place, const Extent &extent)
{
    m_extents[place] = extent;
    m_isToOpen[place] = extent.isCollapsed;
    share();
}

void ViewerPage::note(const ExSplitter &splitter, int handle)
{
    const Place place = &splitter == m_down ? Below : handle == 1 ? Left : Right;
    if (m_isSharing || isEmpty(*m_regions[place])) {
        return;
    }
    const int size = splitter.sizes().at(splitter.indexOf(m_regions[place]));
    Extent &extent = m_extents[place];
    extent.isCollapsed = size == 0;
    if (size > 0) {
        extent.pixels = size;
    }
    Q_EMIT extentsChanged();
}

bool ViewerPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
        share();
    }
    return QWidget::eventFilter(watched, event);
}

void ViewerPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    share();
}

void ViewerPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    share();
}

void ViewerPage::share()
{
    if (m_isSharing) {
        return;
    }
    const QScopedValueRollback sharing(m_isSharing, true);
    shareAlong(*m_across, {m_regions[Left], m_down, m_regions[Right]});
    shareAlong(*m_down, {m_area, m_regions[Below]});
}

void ViewerPage::shareAlong(ExSplitter &splitter, const QList<QWidget *> &panes)
{
    splitter.refresh(); // Otherwise it does not know yet what has been shown or hidden.
    setSizes(splitter, panes);
    const auto wasOpened = [this](QWidget *pane) {
        const auto place = placeOf(qobject_cast<ExEditorRegion *>(pane));
        return place && pane->isVisible() && std::exchange(m_isToOpen[*place], false);
    };
    if (std::count_if(panes.begin(), panes.end(), wasOpened) > 0) {
        setSizes(splitter, panes); // For the arrow they were open; now they are collapsed.
    }
}

void ViewerPage::setSizes(ExSplitter &splitter, const QList<QWidget *> &panes)
{
    const bool isAcross = splitter.orientation() == Qt::Horizontal;
    const auto shown = std::count_if(
        panes.begin(), panes.end(), [](const QWidget *pane) { return !pane->isHidden(); });
    const int space = (isAcross ? splitter.width() : splitter.height())
        - splitter.handleWidth() * static_cast<int>(shown - 1);
    int rest = space;
    QList<int> sizes;
    for (QWidget *pane : panes) {
        const auto place = placeOf(qobject_cast<ExEditorRegion *>(pane));
        const int size = place ? wantedExtent(*place, space) : 0;
        rest -= pane->isHidden() ? 0 : size;
        sizes.append(size);
    }
    sizes[isAcross ? 1 : 0] = std::max(rest, 1);
    splitter.setSizes(sizes);
}

int ViewerPage::wantedExtent(Place place, int space) const
{
    constexpr int toDropOn = 96;
    const ExEditorRegion &region = *m_regions[place];
    const Extent &extent = m_extents[place];
    if (isEmpty(region)) {
        return toDropOn;
    }
    if (extent.isCollapsed && !(m_isToOpen[place] && region.isVisible())) {
        return 0;
    }
    // Images are what people look at: in a narrow window they keep the larger part.
    constexpr int mostPercent = 40;
    constexpr int whole = 100;
    const int least = place == Below ? region.minimumHeight() : region.minimumWidth();
    return std::max(std::min(extent.pixels, space * mostPercent / whole), least);
}
