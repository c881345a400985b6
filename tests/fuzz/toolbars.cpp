// What is on the tool bars, from a file of the site or the user: a mistake is told with its line,
// and what is read can be made into bars.
#include "client/toolbars/ToolBarLayout.h"
#include "tests/fuzz/FuzzInput.h"

#include <set>

namespace {

void checkBars(const ToolBarLayout &layout)
{
    std::set<QString> ids;
    for (const ToolBarLayout::Bar &bar : layout.bars) {
        require(ids.insert(bar.id).second);
        for (const ToolBarLayout::Item &item : bar.items) {
            require(item.size >= 0 && item.size <= 1000);
            require(item.kind == ToolBarLayout::Item::Popup || item.tools.isEmpty());
        }
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray content = bytesOf(data, size);
    const auto read = ToolBarLayout::read(content);
    if (const auto *const error = std::get_if<ToolBarLayout::Error>(&read)) {
        require(error->line >= 0 && !error->text.isEmpty());
    } else {
        checkBars(std::get<ToolBarLayout>(read));
    }
    return 0;
}
