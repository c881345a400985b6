#include "client/interaction/ScrollInteraction.h"

#include "client/links/LinkedActions.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/VolumeViewer.h"

#include <QPoint>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int wheelStep = 120;
constexpr double zoomOfStep = 1.15;
constexpr int page = 10;

struct KeyStep
{
    int key;
    int planes;
    int phases;
};

constexpr std::array<KeyStep, 6> keySteps{{
    {Qt::Key_Up, -1, 0},
    {Qt::Key_Down, 1, 0},
    {Qt::Key_PageUp, -page, 0},
    {Qt::Key_PageDown, page, 0},
    {Qt::Key_Left, 0, -1},
    {Qt::Key_Right, 0, 1},
}};

} // namespace

void ScrollInteraction::install(ExEventHandler &handler)
{
    bind(handler, ExSignal::WHEEL, 0, this, &ScrollInteraction::wheel);
    for (const KeyStep &step : keySteps) {
        bind(handler, ExSignal::PRESS, step.key, this, &ScrollInteraction::key);
    }
}

int ScrollInteraction::takeSteps(const ExEvent &event)
{
    if (event.object != m_lastObject) {
        m_lastObject = event.object;
        m_remainder = 0;
    }
    m_remainder += event.delta;
    const int steps = m_remainder / wheelStep;
    m_remainder -= steps * wheelStep;
    return steps;
}

bool ScrollInteraction::wheel(const ExEvent &event)
{
    const int steps = takeSteps(event);
    SliceViewer *const slice = sliceViewerOf(event);
    WorkstationViewer *const viewer = viewerOf(event);
    if (hasModifiers(event, Qt::AltModifier) && viewer != nullptr) {
        LinkedActions::stepPhase(*viewer, -steps);
    } else if (slice != nullptr && hasModifiers(event, Qt::ControlModifier)) {
        LinkedActions::zoom(*slice, std::pow(zoomOfStep, steps));
    } else if (slice != nullptr) {
        LinkedActions::scroll(*slice, -steps);
    } else if (VolumeViewer *const volume = volumeViewerOf(event)) {
        volume->setZoom(volume->zoom() * std::pow(zoomOfStep, steps));
    }
    return viewer != nullptr;
}

bool ScrollInteraction::key(const ExEvent &event)
{
    WorkstationViewer *const viewer = viewerOf(event);
    const auto *const step = std::find_if(keySteps.begin(), keySteps.end(),
        [&event](const KeyStep &each) { return each.key == event.buttonOrKey; });
    if (viewer == nullptr || step == keySteps.end()) {
        return false;
    }
    if (step->phases != 0) {
        LinkedActions::stepPhase(*viewer, step->phases);
    } else if (SliceViewer *const slice = sliceViewerOf(event)) {
        LinkedActions::scroll(*slice, step->planes);
    }
    return true;
}
