#pragma once

#include "client/interaction/ViewerInteraction.h"

#include <QObject>
#include <QPointer>

/// The wheel scrolls, with Ctrl it zooms, with Alt it steps through the phases; in 3D it zooms.
/// Arrow and page keys scroll and step through the phases.
class ScrollInteraction final : public ViewerInteraction
{
public:
    void install(ExEventHandler &handler) override;

private:
    bool wheel(const ExEvent &event);
    bool key(const ExEvent &event);
    /// Whole wheel steps; what is left of finer wheels waits for the next event on the same widget.
    int takeSteps(const ExEvent &event);

    QPointer<const QObject> m_lastObject;
    int m_remainder = 0;
};
