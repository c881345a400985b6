#pragma once

#include "platform/display/ExDisplayInfo.h"

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

#include <vector>

/// Who a logical monitor is, whatever its number: numbers change when monitors come and go.
struct MonitorIdentity
{
    QString name;
    QString serial;
    QPoint position;
    /// 0 for a whole display or its left half, 1 for its right half.
    int half = 0;
    /// Pixels of the device per device-independent pixel; says nothing about who it is.
    double scale = 1;

    friend bool operator==(const MonitorIdentity &, const MonitorIdentity &) = default;
};

/// The monitors that windows are placed on, as read at one time. A display that is split gives two
/// monitors. Device-independent pixels of the desktop.
class MonitorSet
{
public:
    QList<QRect> monitors;
    /// In the order of the monitors.
    QList<MonitorIdentity> identities;
    /// For each display the numbers of its monitors; empty for monitors named by hand.
    QList<QList<int>> physical;
    int primary = 0;
    /// Union of all monitors; null for none.
    QRect total;

    /// Monitors named by hand, between commas or blanks: "1280x1024-1280+0" (size, then the place
    /// of the top-left corner), or "1280x1024" to the right of the one before. Anything else is
    /// skipped. Numbers beyond half a thousand million count as that.
    [[nodiscard]] static MonitorSet fromText(const QByteArray &text);
    /// The displays, each whole or split into halves; without any, one of 1024x768.
    /// @param split for each display, non-zero to split it; ignored when it is of another length.
    [[nodiscard]] static MonitorSet fromDisplays(
        std::vector<ExDisplayInfo> displays, const QList<int> &split);
    /// What there is now: the environment variable MOVARA_MONITORS when it is set, else the
    /// displays, split by the setting "UI.SplitMonitorConfig".
    [[nodiscard]] static MonitorSet read();

    /// The rectangle of a monitor; a null one for a number that is out of range.
    [[nodiscard]] QRect rect(qsizetype monitor) const;
    /// Whether a window can be placed on the monitor.
    [[nodiscard]] bool isUsable(int monitor) const;
    /// The first monitor with this point, or -1.
    [[nodiscard]] int monitorAt(const QPoint &point) const;
    /// The monitor that is the one meant: by name and serial number, else by name, else by place;
    /// -1 when it is not there.
    [[nodiscard]] int find(const MonitorIdentity &identity) const;

    friend bool operator==(const MonitorSet &, const MonitorSet &) = default;

private:
    void append(const QRect &rect, const MonitorIdentity &identity);
    void appendWholeOrSplit(const ExDisplayInfo &display, bool split);
};
