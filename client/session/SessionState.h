#pragma once

#include "client/measurements/Measurement.h"
#include "client/viewers/ViewerStates.h"
#include "framework/session/ExSessionData.h"

#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <string>
#include <vector>

/// The blocks of a saved session that the workstation itself writes, as plain values. Any thread.
namespace SessionState {

/// What was opened.
struct Studies
{
    static constexpr char name[] = "Studies"; ///< of the block
    QStringList paths; ///< folders and files, absolute

    [[nodiscard]] QByteArray toBytes() const;
    /// Nothing when the bytes make no sense.
    [[nodiscard]] static std::optional<Studies> fromBytes(const QByteArray &bytes);
};

struct Viewer
{
    std::string displaySet; ///< its place: layout and number
    bool isVolume = false;
    bool isActive = false;
    bool isFullscreen = false;
    std::string seriesUid; ///< empty for none
    QString seriesName; ///< for messages; tells nothing of the patient
    int phase = 0;
    SliceView slice; ///< of a viewer of slices
    VolumeView volume; ///< of a 3D viewer
};

struct Viewers
{
    static constexpr char name[] = "Viewers";
    QStringList layouts; ///< the name of each screen's
    std::vector<Viewer> viewers;

    [[nodiscard]] QByteArray toBytes() const;
    [[nodiscard]] static std::optional<Viewers> fromBytes(const QByteArray &bytes);
};

struct Links
{
    /// How a viewer is linked in one way.
    struct Membership
    {
        std::string type;
        std::string group; ///< viewers with the same one are linked with each other
        int viewer = 0; ///< in the order of the viewers
        bool isAttached = true;
    };

    static constexpr char name[] = "Links";
    std::map<std::string, bool> enabled; ///< by the type of link
    std::vector<Membership> memberships;

    [[nodiscard]] QByteArray toBytes() const;
    [[nodiscard]] static std::optional<Links> fromBytes(const QByteArray &bytes);
};

struct Measurements
{
    static constexpr char name[] = "Measurements";
    std::vector<Measurement> all;

    [[nodiscard]] QByteArray toBytes() const;
    [[nodiscard]] static std::optional<Measurements> fromBytes(const QByteArray &bytes);
};

/// Whether all four blocks are there and make sense.
[[nodiscard]] bool isSound(const ExSessionData &session);
/// Whether nothing in it is worth keeping: neither studies nor measurements.
[[nodiscard]] bool isEmpty(const ExSessionData &session);

} // namespace SessionState
