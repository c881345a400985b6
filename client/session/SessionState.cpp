#include "client/session/SessionState.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cmath>

namespace SessionState {

namespace {

/// Kinds come as numbers, whose meaning must not change: new ones are added at the end.
template <typename Kind>
constexpr int lastOf = 0;
template <>
constexpr int lastOf<PlaneKind> = static_cast<int>(PlaneKind::Oblique);
template <>
constexpr int lastOf<Measurement::Kind> = static_cast<int>(Measurement::Kind::Polygon);

class Writer
{
public:
    Writer()
        : m_stream(&m_bytes, QIODevice::WriteOnly)
    {
        m_stream.setVersion(QDataStream::Qt_6_0);
    }
    [[nodiscard]] const QByteArray &bytes() const { return m_bytes; }

    Writer &operator<<(bool value) { return put(static_cast<quint8>(value)); }
    Writer &operator<<(int value) { return put(static_cast<qint32>(value)); }
    Writer &operator<<(double value) { return put(value); }
    Writer &operator<<(const QString &text) { return put(text.toUtf8()); }
    Writer &operator<<(const std::string &text) { return put(QByteArray::fromStdString(text)); }
    Writer &operator<<(const McVec3d &v) { return *this << v.x << v.y << v.z; }
    Writer &operator<<(const KxVolume::Window &w) { return *this << w.center << w.width; }
    Writer &operator<<(PlaneKind kind) { return *this << static_cast<int>(kind); }
    Writer &operator<<(Measurement::Kind kind) { return *this << static_cast<int>(kind); }
    Writer &operator<<(const KxSlice &slice)
    {
        return *this << slice.center() << slice.right() << slice.down() << slice.thickness();
    }
    template <typename List>
    Writer &list(const List &all)
    {
        *this << static_cast<int>(all.size());
        for (const auto &each : all) {
            *this << each;
        }
        return *this;
    }

private:
    template <typename Value>
    Writer &put(const Value &value)
    {
        m_stream << value;
        return *this;
    }

    QByteArray m_bytes;
    QDataStream m_stream;
};

/// After the first value that is not there or makes no sense nothing more is read.
class Reader
{
public:
    explicit Reader(const QByteArray &bytes)
        : m_stream(bytes)
    {
        m_stream.setVersion(QDataStream::Qt_6_0);
    }
    [[nodiscard]] bool isGood() const { return m_isGood; }
    /// Whether everything has been read and made sense.
    [[nodiscard]] bool isDone() const { return m_isGood && m_stream.atEnd(); }

    Reader &operator>>(bool &value)
    {
        quint8 byte = 0;
        take(byte);
        value = byte == 1;
        return require(byte <= 1);
    }
    Reader &operator>>(int &value)
    {
        qint32 number = 0;
        take(number);
        value = number;
        return *this;
    }
    Reader &operator>>(double &value)
    {
        take(value);
        return require(std::isfinite(value));
    }
    Reader &operator>>(QString &text)
    {
        QByteArray bytes;
        take(bytes);
        text = QString::fromUtf8(bytes);
        return *this;
    }
    Reader &operator>>(std::string &text)
    {
        QByteArray bytes;
        take(bytes);
        text = bytes.toStdString();
        return *this;
    }
    Reader &operator>>(McVec3d &v) { return *this >> v.x >> v.y >> v.z; }
    Reader &operator>>(KxVolume::Window &w) { return *this >> w.center >> w.width; }
    Reader &operator>>(PlaneKind &kind) { return takeKind(kind); }
    Reader &operator>>(Measurement::Kind &kind) { return takeKind(kind); }
    Reader &operator>>(KxSlice &slice)
    {
        McVec3d center;
        McVec3d right;
        McVec3d down;
        double thickness = 0;
        *this >> center >> right >> down >> thickness;
        slice = {center, right, down, thickness};
        return requireRightAngle(right, down);
    }
    /// Of two unit vectors.
    Reader &requireRightAngle(const McVec3d &a, const McVec3d &b)
    {
        constexpr double slack = 1e-6;
        const auto isUnit = [](const McVec3d &v) { return std::abs(v.length() - 1) <= slack; };
        return require(isUnit(a) && isUnit(b) && std::abs(a.dot(b)) <= slack);
    }
    Reader &require(bool makesSense)
    {
        m_isGood = m_isGood && makesSense && m_stream.status() == QDataStream::Ok;
        return *this;
    }
    template <typename List>
    Reader &list(List &all)
    {
        int count = 0;
        *this >> count;
        require(count >= 0);
        for (int i = 0; i < count && m_isGood; ++i) {
            typename List::value_type each{};
            *this >> each;
            all.push_back(std::move(each));
        }
        return *this;
    }

private:
    template <typename Value>
    void take(Value &value)
    {
        if (m_isGood) {
            m_stream >> value;
            require(true);
        }
    }
    template <typename Kind>
    Reader &takeKind(Kind &kind)
    {
        int number = 0;
        *this >> number;
        require(number >= 0 && number <= lastOf<Kind>);
        kind = static_cast<Kind>(m_isGood ? number : 0);
        return *this;
    }

    QDataStream m_stream;
    bool m_isGood = true;
};

Writer &operator<<(Writer &writer, const SliceView &view)
{
    return writer << view.plane << view.ownPlane << view.slice << view.zoom << view.isFitting
                  << view.window << view.isInverted << view.isFlippedAcross << view.isFlippedDown;
}

Reader &operator>>(Reader &reader, SliceView &view)
{
    reader >> view.plane >> view.ownPlane >> view.slice >> view.zoom >> view.isFitting
        >> view.window >> view.isInverted >> view.isFlippedAcross >> view.isFlippedDown;
    return reader.require(view.zoom > 0 && view.ownPlane != PlaneKind::Oblique);
}

Writer &operator<<(Writer &writer, const VolumeView &view)
{
    return writer << view.viewDirection << view.up << view.zoom << view.isFitting << view.window;
}

Reader &operator>>(Reader &reader, VolumeView &view)
{
    reader >> view.viewDirection >> view.up >> view.zoom >> view.isFitting >> view.window;
    return reader.require(view.zoom > 0).requireRightAngle(view.viewDirection, view.up);
}

Writer &operator<<(Writer &writer, const Viewer &viewer)
{
    writer << viewer.displaySet << viewer.isVolume << viewer.isActive << viewer.isFullscreen
           << viewer.seriesUid << viewer.seriesName << viewer.phase;
    return viewer.isVolume ? writer << viewer.volume : writer << viewer.slice;
}

Reader &operator>>(Reader &reader, Viewer &viewer)
{
    reader >> viewer.displaySet >> viewer.isVolume >> viewer.isActive >> viewer.isFullscreen
        >> viewer.seriesUid >> viewer.seriesName >> viewer.phase;
    return viewer.isVolume ? reader >> viewer.volume : reader >> viewer.slice;
}

Writer &operator<<(Writer &writer, const Links::Membership &membership)
{
    return writer << membership.type << membership.group << membership.viewer
                  << membership.isAttached;
}

Reader &operator>>(Reader &reader, Links::Membership &membership)
{
    return reader >> membership.type >> membership.group >> membership.viewer
        >> membership.isAttached;
}

/// The least number of points of a kind; only a polygon has more.
std::size_t leastPoints(Measurement::Kind kind)
{
    const bool isAngleOrPolygon
        = kind == Measurement::Kind::Angle || kind == Measurement::Kind::Polygon;
    return isAngleOrPolygon ? 3 : 2;
}

Writer &operator<<(Writer &writer, const Measurement &each)
{
    return (writer << each.id << each.kind << each.name << each.seriesUid << each.frameOfReference
                   << each.plane)
        .list(each.points);
}

Reader &operator>>(Reader &reader, Measurement &each)
{
    reader >> each.id >> each.kind >> each.name >> each.seriesUid >> each.frameOfReference
        >> each.plane;
    reader.list(each.points);
    each.isComplete = true;
    const std::size_t least = leastPoints(each.kind);
    const bool mayHaveMore = each.kind == Measurement::Kind::Polygon;
    return reader.require(
        each.id > 0 && each.points.size() >= least && (mayHaveMore || each.points.size() == least));
}

Writer &operator<<(Writer &writer, const std::pair<const std::string, bool> &each)
{
    return writer << each.first << each.second;
}

template <typename Block>
std::optional<Block> blockOf(const ExSessionData &session)
{
    const QString name = QString::fromLatin1(Block::name);
    return session.contains(name) ? Block::fromBytes(session.block(name)) : std::nullopt;
}

} // namespace

QByteArray Studies::toBytes() const
{
    return Writer().list(paths).bytes();
}

std::optional<Studies> Studies::fromBytes(const QByteArray &bytes)
{
    Studies studies;
    const bool isDone = Reader(bytes).list(studies.paths).isDone();
    return isDone ? std::optional(studies) : std::nullopt;
}

QByteArray Viewers::toBytes() const
{
    return Writer().list(layouts).list(viewers).bytes();
}

std::optional<Viewers> Viewers::fromBytes(const QByteArray &bytes)
{
    Viewers read;
    const bool isDone = Reader(bytes).list(read.layouts).list(read.viewers).isDone();
    return isDone ? std::optional(read) : std::nullopt;
}

QByteArray Links::toBytes() const
{
    return Writer().list(enabled).list(memberships).bytes();
}

std::optional<Links> Links::fromBytes(const QByteArray &bytes)
{
    Links links;
    Reader reader(bytes);
    int count = 0;
    reader >> count;
    for (int i = 0; i < count && reader.isGood(); ++i) {
        std::string type;
        bool isEnabled = true;
        reader >> type >> isEnabled;
        links.enabled.insert_or_assign(type, isEnabled);
    }
    const bool isDone = reader.list(links.memberships).isDone();
    return isDone ? std::optional(links) : std::nullopt;
}

QByteArray Measurements::toBytes() const
{
    return Writer().list(all).bytes();
}

std::optional<Measurements> Measurements::fromBytes(const QByteArray &bytes)
{
    Measurements measurements;
    const bool isDone = Reader(bytes).list(measurements.all).isDone();
    return isDone ? std::optional(measurements) : std::nullopt;
}

bool isSound(const ExSessionData &session)
{
    return blockOf<Studies>(session) && blockOf<Viewers>(session) && blockOf<Links>(session)
        && blockOf<Measurements>(session);
}

bool isEmpty(const ExSessionData &session)
{
    const std::optional<Studies> studies = blockOf<Studies>(session);
    const std::optional<Measurements> measurements = blockOf<Measurements>(session);
    return (!studies || studies->paths.isEmpty()) && (!measurements || measurements->all.empty());
}

} // namespace SessionState
