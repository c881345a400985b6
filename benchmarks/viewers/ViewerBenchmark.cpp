// How gathering viewers, looking up links and laying out a screen grow with the number of viewers,
// beside a plain vector, a hash table and the toolkit's grid layout.

#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExBaseViewerGroup.h"
#include "framework/viewers/ExScreen.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"
#include "framework/viewers/ExViewerManager.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

#include <QGridLayout>
#include <QHash>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace {

constexpr auto sliceType = static_cast<Ex::ViewerType>(1);
constexpr auto volumeType = static_cast<Ex::ViewerType>(2);

class Viewer final : public ExBaseViewer
{
public:
    explicit Viewer(Ex::ViewerType type, QWidget *widget = nullptr)
        : m_type(type)
        , m_widget(widget)
    { }
    [[nodiscard]] Ex::ViewerType viewerType() const override { return m_type; }
    [[nodiscard]] std::string displaySetID() const override { return {}; }
    void setDisplaySetID(const std::string & /*id*/) override { }
    [[nodiscard]] KxImageSeries *imageSet(int /*index*/) const override { return nullptr; }
    [[nodiscard]] KxVolume *volume(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QWidget *renderWidget() const override { return m_widget; }
    [[nodiscard]] ExEventHandler *eventHandler() const override { return nullptr; }
    void renderFrame() override { }

private:
    Ex::ViewerType m_type;
    QWidget *m_widget;
};

class Manager final : public ExViewerManager
{
public:
    explicit Manager(int count)
    {
        for (int i = 0; i < count; ++i) {
            addViewer(new Viewer(i % 4 == 3 ? volumeType : sliceType), {}, false);
        }
    }
    ~Manager() override
    {
        for (int i = 0; i < numViewers(); ++i) {
            ExViewerDB::clear(viewer(i));
        }
        removeAllViewers();
    }
    ExScreen *screenForViewer(ExBaseViewer * /*viewer*/) override { return nullptr; }
};

void gather(benchmark::State &state)
{
    const Manager manager(static_cast<int>(state.range(0)));
    const ExBaseViewer *const reference = manager.viewer(0);
    for (auto _ : state) {
        const ExBaseViewerGroup group(reference, ExBaseViewerGroup::ALL_VIEWERS, sliceType);
        benchmark::DoNotOptimize(group.size());
    }
}

void gatherPlain(benchmark::State &state)
{
    std::vector<McHandle<ExBaseViewer>> viewers;
    for (int i = 0; i < state.range(0); ++i) {
        viewers.emplace_back(new Viewer(i % 4 == 3 ? volumeType : sliceType));
    }
    for (auto _ : state) {
        std::vector<ExBaseViewer *> group;
        for (const McHandle<ExBaseViewer> &viewer : viewers) {
            if (viewer->viewerType() == sliceType) {
                group.push_back(viewer.get());
            }
        }
        benchmark::DoNotOptimize(group.size());
    }
}

/// Groups of four viewers, as a user links them.
void lookUpLinks(benchmark::State &state)
{
    const Manager manager(static_cast<int>(state.range(0)));
    const std::string &type = ExViewerDB::ZOOM_GROUP;
    for (int i = 0; i < manager.numViewers(); i += 4) {
        McDArray<ExBaseViewer *> linked;
        for (int k = i; k < std::min(i + 4, manager.numViewers()); ++k) {
            linked.append(manager.viewer(k));
        }
        ExViewerDB::createGroup(type, linked, true);
    }
    int next = 0;
    for (auto _ : state) {
        next = (next + 1) % manager.numViewers();
        benchmark::DoNotOptimize(ExViewerDB::group(type, manager.viewer(next)));
    }
}

void lookUpInHash(benchmark::State &state)
{
    const Manager manager(static_cast<int>(state.range(0)));
    QHash<const ExBaseViewer *, int> groups;
    for (int i = 0; i < manager.numViewers(); ++i) {
        groups.insert(manager.viewer(i), i / 4);
    }
    int next = 0;
    for (auto _ : state) {
        next = (next + 1) % manager.numViewers();
        benchmark::DoNotOptimize(groups.value(manager.viewer(next)));
    }
}

constexpr QSize firstSize(1600, 1000);
constexpr QSize secondSize(1500, 900);

class Screen final : public ExScreen
{
public:
    explicit Screen(QWidget &area)
        : m_area(area)
    { }
    [[nodiscard]] int numScreens() const override { return 1; }
    [[nodiscard]] int numScreenRects() const override { return 1; }
    [[nodiscard]] QRect screenRect(int /*screen*/) const override { return m_area.geometry(); }
    [[nodiscard]] bool isContiguous() const override { return true; }
    [[nodiscard]] QString screenName(int /*screen*/) const override { return {}; }
    [[nodiscard]] QWidget *screenWidget(int /*screen*/) const override { return &m_area; }
    [[nodiscard]] QRect childRect(const QWidget * /*widget*/, const McBox2f &box) const override
    {
        const auto width = static_cast<float>(m_area.width());
        const auto height = static_cast<float>(m_area.height());
        return QRectF(
            box.xMin() * width, box.yMin() * height, box.width() * width, box.height() * height)
            .toRect();
    }
    void raiseScreen(int /*screen*/) override { }

private:
    QWidget &m_area;
};

int columnsFor(benchmark::State &state)
{
    return static_cast<int>(std::ceil(std::sqrt(static_cast<double>(state.range(0)))));
}

void reconfigure(benchmark::State &state)
{
    QWidget area;
    area.resize(firstSize);
    area.show();
    Screen screen(area);
    screen.setReconfigureEnabled(false);
    const int columns = columnsFor(state);
    const float step = 1.0F / static_cast<float>(columns);
    for (int i = 0; i < state.range(0); ++i) {
        auto *const widget = new QWidget(&area);
        widget->show();
        const float x = static_cast<float>(i % columns) * step;
        const float y = static_cast<float>(i / columns) * step;
        screen.addWidget(widget, {x, y, x + step, y + step});
    }
    screen.setReconfigureEnabled(true);
    bool isFirst = false;
    for (auto _ : state) {
        isFirst = !isFirst;
        area.resize(isFirst ? firstSize : secondSize);
        screen.reconfigure();
    }
    screen.removeAllWidgets();
}

void layOutGrid(benchmark::State &state)
{
    QWidget area;
    area.resize(firstSize);
    auto *const grid = new QGridLayout(&area);
    grid->setContentsMargins({});
    grid->setSpacing(0);
    const int columns = columnsFor(state);
    for (int i = 0; i < state.range(0); ++i) {
        grid->addWidget(new QWidget, i / columns, i % columns);
    }
    area.show();
    bool isFirst = false;
    for (auto _ : state) {
        isFirst = !isFirst;
        area.resize(isFirst ? firstSize : secondSize);
        grid->activate();
    }
}

void counts(benchmark::internal::Benchmark *benchmark)
{
    for (const int count : {8, 128, 1000}) {
        benchmark->Arg(count);
    }
}

BENCHMARK(gatherPlain)->Name("viewers: gather/vector with a filter")->Apply(counts);
BENCHMARK(gather)->Name("viewers: gather/movara")->Apply(counts);
BENCHMARK(lookUpInHash)->Name("viewers: links/QHash")->Apply(counts);
BENCHMARK(lookUpLinks)->Name("viewers: links/movara")->Apply(counts);
BENCHMARK(layOutGrid)->Name("viewers: screen/QGridLayout")->Apply(counts);
BENCHMARK(reconfigure)->Name("viewers: screen/movara")->Apply(counts);

} // namespace
