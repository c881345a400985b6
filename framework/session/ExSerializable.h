#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/util/McDArray.h"

#include <QString>

class ExSessionData;
class KxImageSeries;
class KxMsg;
class KxVolume;

/// Mix-in base of every object whose state belongs in a saved session or travels with a volume. All
/// live instances are in one process-wide registry, in order of construction, so that saving can
/// visit them. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExSerializable
{
public:
    /// Enters the object in the registry.
    ExSerializable();
    /// Takes it out; the order of the others is kept.
    virtual ~ExSerializable();
    ExSerializable(const ExSerializable &) = delete;
    ExSerializable &operator=(const ExSerializable &) = delete;

    /// What the user calls this part of the session, e.g. in the question whether unsaved data may
    /// be lost.
    [[nodiscard]] virtual QString displayName() const = 0;

    /// Writes the object's state into the session. The base does nothing.
    virtual void serialize(ExSessionData &session);
    /// Takes the object's state from a session. The base does nothing.
    virtual void deserialize(ExSessionData &session);
    /// Removes what the object has stored with a volume. The base does nothing.
    virtual void cleanVolumeParameters(KxVolume *volume);
    /// Whether the object holds something that is not saved yet; false in the base.
    [[nodiscard]] virtual bool unsavedData() const;
    /// Identifies the object's data in a session; unique among all live instances. Null (as in the
    /// base) or empty for an object without data of its own.
    [[nodiscard]] virtual const char *persistentName() const;

    // Each gives whether there was something to write or read; false in the base. The spelling of
    // the two operations for volumes is what clients override: it stays.

    virtual bool serializeGlobalParameters(KxMsg &message) const;
    virtual bool serializeVolumeParamters(KxMsg &message, KxImageSeries *series) const;
    virtual bool deserializeGlobalParameters(KxMsg &message);
    virtual bool deserializeVolumeParamters(KxMsg &message, KxImageSeries *series);

    /// Replaces the content of @p all by the live instances in order of construction.
    static void instances(McDArray<ExSerializable *> &all);
    /// Whether no two live instances have the same persistent name (compared with case); those
    /// without are left out.
    static bool checkIntegrity();
};
