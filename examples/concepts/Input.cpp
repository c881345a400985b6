// What docs/concepts/input.md shows.
#include "framework/input/ExEventHandler.h"
#include "framework/tools/ExHotKeys.h"
#include "framework/tools/ExTool.h"

#include <Qt>

/// Zooms by the wheel with Ctrl held, and puts the zoom back by a click with the middle button.
class ZoomActions final : public ExActionHandler
{
public:
    void install(ExEventHandler &handler)
    {
        ExSignal wheel(ExSignal::WHEEL, 0, 0, 0);
        wheel.orderKey = 10; // before the scrolling, which has 0
        handler.addAction({wheel, this, &ZoomActions::zoom});
        const ExSignal click(ExSignal::CLICK, Qt::MiddleButton, 0, 0);
        handler.addAction({click, this, &ZoomActions::reset});
    }
    [[nodiscard]] double factor() const { return m_factor; }

private:
    bool zoom(const ExEvent &event)
    {
        if ((event.state & int(Qt::ControlModifier)) == 0) {
            return false; // not ours: the next one may have it
        }
        m_factor *= event.delta > 0 ? 1.25 : 0.8;
        return true;
    }
    bool reset(const ExEvent & /*event*/)
    {
        m_factor = 1;
        return true;
    }

    double m_factor = 1;
};

/// Gives a tool another key, unless another tool has that. @return whether it has it now.
bool chooseKey(ExTool &tool, const QKeySequence &keys)
{
    const ExTool *const holder = ExHotKeys::findHotKey(keys);
    if (holder != nullptr && holder != &tool) {
        return false;
    }
    ExHotKeys::setHotKey(&tool, keys);
    return true;
}
