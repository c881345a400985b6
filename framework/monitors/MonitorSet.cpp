#include "framework/monitors/MonitorSet.h"

#include "framework/monitors/MonitorSettings.h"
#include "platform/display/ExDisplayConfig.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace {

/// Far beyond any desktop, and small enough that sums and widths of rectangles stay integers.
constexpr std::int64_t largest = 1 << 29;

std::int64_t limited(std::int64_t number)
{
    return std::clamp(number, -largest, largest);
}

QRect rectOf(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height)
{
    const auto left = limited(x);
    const auto top = limited(y);
    return {QPoint(static_cast<int>(left), static_cast<int>(top)),
        QPoint(static_cast<int>(left + limited(width) - 1),
            static_cast<int>(top + limited(height) - 1))};
}

/// Takes a decimal number, perhaps after white space and a sign, from the front of the text.
std::optional<std::int64_t> takeNumber(std::string_view &text)
{
    text.remove_prefix(std::min(text.find_first_not_of("\t\n\v\f\r"), text.size()));
    std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    const bool negative = at == 1 && text[0] == '-';
    const std::size_t begin = at;
    std::int64_t number = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        number = std::min(number * 10 + (text[at] - '0'), largest);
    }
    if (at == begin) {
        return std::nullopt;
    }
    text.remove_prefix(at);
    return negative ? -number : number;
}

/// A sign character and a number; a minus turns the number's own sign round.
std::optional<std::int64_t> takeOffset(std::string_view &text)
{
    if (text.empty()) {
        return std::nullopt;
    }
    const bool turned = text[0] == '-';
    text.remove_prefix(1);
    const std::optional<std::int64_t> number = takeNumber(text);
    return number && turned ? -*number : number;
}

/// The rectangle that a token names; nothing when it names none. @param right where monitors that
/// are given by size only go on.
std::optional<QRect> rectFromToken(std::string_view text, std::int64_t right)
{
    const std::optional<std::int64_t> width = takeNumber(text);
    if (!width || text.empty() || text[0] != 'x') {
        return std::nullopt;
    }
    text.remove_prefix(1);
    const std::optional<std::int64_t> height = takeNumber(text);
    if (!height) {
        return std::nullopt;
    }
    const std::optional<std::int64_t> x = takeOffset(text);
    const std::optional<std::int64_t> y = x ? takeOffset(text) : std::nullopt;
    return y ? rectOf(*x, *y, *width, *height) : rectOf(right, 0, *width, *height);
}

std::vector<ExDisplayInfo> connectedDisplays()
{
    std::vector<ExDisplayInfo> displays;
    ExDisplayConfig::getDisplayInfo(displays);
    return displays;
}

} // namespace

MonitorSet MonitorSet::fromText(const QByteArray &text)
{
    MonitorSet set;
    QByteArray blanks = text;
    blanks.replace(',', ' ');
    for (const QByteArray &token : blanks.split(' ')) {
        const std::int64_t right
            = set.monitors.isEmpty() ? 0 : std::int64_t{set.monitors.last().right()} + 1;
        const std::string_view view(token.constData(), static_cast<std::size_t>(token.size()));
        if (const std::optional<QRect> rect = rectFromToken(view, right)) {
            set.append(*rect, {QString(), QString(), rect->topLeft()});
        }
    }
    return set;
}

MonitorSet MonitorSet::fromDisplays(std::vector<ExDisplayInfo> displays, const QList<int> &split)
{
    if (displays.empty()) {
        displays.push_back({0, 0, 1024, 768, true, QString(), QString(), 1.0});
    }
    MonitorSet set;
    const bool splits = static_cast<std::size_t>(split.size()) == displays.size();
    for (std::size_t i = 0; i < displays.size(); ++i) {
        if (displays[i].primary) {
            set.primary = static_cast<int>(set.monitors.size());
        }
        set.appendWholeOrSplit(displays[i], splits && split.at(static_cast<qsizetype>(i)) != 0);
    }
    return set;
}

MonitorSet MonitorSet::read()
{
    constexpr const char *variable = "MOVARA_MONITORS";
    if (qEnvironmentVariableIsSet(variable)) {
        return fromText(qgetenv(variable));
    }
    return fromDisplays(connectedDisplays(), MonitorSettings::splitConfig().value());
}

void MonitorSet::append(const QRect &rect, const MonitorIdentity &identity)
{
    monitors.append(rect);
    identities.append(identity);
    total = total | rect;
}

void MonitorSet::appendWholeOrSplit(const ExDisplayInfo &display, bool split)
{
    const QRect rect = rectOf(display.x, display.y, display.width, display.height);
    MonitorIdentity identity{display.name, display.serial, rect.topLeft(), 0, display.scale};
    const int number = static_cast<int>(monitors.size());
    if (!split) {
        append(rect, identity);
        physical.append(QList<int>{number});
        return;
    }
    // The halves are of equal width: of a display of odd width the last column belongs to neither.
    const int half = rect.width() / 2;
    append({rect.left(), rect.top(), half, rect.height()}, identity);
    identity.half = 1;
    append({rect.left() + half, rect.top(), half, rect.height()}, identity);
    physical.append(QList<int>{number, number + 1});
}

QRect MonitorSet::rect(qsizetype monitor) const
{
    return monitor >= 0 && monitor < monitors.size() ? monitors.at(monitor) : QRect();
}

bool MonitorSet::isUsable(int monitor) const
{
    return rect(monitor).isValid();
}

int MonitorSet::monitorAt(const QPoint &point) const
{
    const auto found = std::find_if(monitors.begin(), monitors.end(),
        [&point](const QRect &monitor) { return monitor.contains(point); });
    return found == monitors.end() ? -1 : static_cast<int>(found - monitors.begin());
}

int MonitorSet::find(const MonitorIdentity &identity) const
{
    using Test = bool (*)(const MonitorIdentity &, const MonitorIdentity &);
    static constexpr std::array<Test, 3> tests{
        [](const auto &a, const auto &b) {
            return !a.serial.isEmpty() && a.serial == b.serial && a.name == b.name
                && a.half == b.half;
        },
        [](const auto &a, const auto &b) {
            return !a.name.isEmpty() && a.name == b.name && a.half == b.half;
        },
        [](const auto &a, const auto &b) {
            return a.name.isEmpty() && a.position == b.position && a.half == b.half;
        },
    };
    for (const Test test : tests) {
        for (qsizetype i = 0; i < identities.size(); ++i) {
            if (test(identity, identities.at(i))) {
                return static_cast<int>(i);
            }
        }
    }
    return -1;
}
