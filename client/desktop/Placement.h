#pragma once

#include <QList>
#include <QRect>

/// Which monitors the workstation's contents are on. A plain value; monitors are named by their
/// numbers.
struct Placement
{
    enum class Problem {
        None,
        NoViewers, ///< The viewers are on no monitor.
        NoStudies, ///< The list of studies is on none.
        Apart ///< Between the viewers' monitors lies one that they are not on.
    };

    QList<int> viewers; ///< ascending
    int studies = -1;

    friend bool operator==(const Placement &, const Placement &) = default;

    /// Everything on the primary monitor.
    [[nodiscard]] static Placement standard(int primary);
    /// Whether the list stands beside viewers.
    [[nodiscard]] bool isTogether() const { return viewers.contains(studies); }
    /// Why windows cannot be placed so on these monitors.
    [[nodiscard]] Problem problem(const QList<QRect> &monitors) const;
};
