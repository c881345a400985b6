#include "framework/session/ExSerializable.h"

#include <cstring>

namespace {

/// Never destroyed: static objects may be participants.
McDArray<ExSerializable *> &registry()
{
    static auto *const instances = new McDArray<ExSerializable *>;
    return *instances;
}

bool isUnique(const char *name)
{
    int count = 0;
    for (const ExSerializable *other : registry()) {
        const char *const otherName = other->persistentName();
        count += otherName != nullptr && std::strcmp(otherName, name) == 0 ? 1 : 0;
    }
    return count == 1;
}

} // namespace

ExSerializable::ExSerializable()
{
    registry().append(this);
}

ExSerializable::~ExSerializable()
{
    registry().remove(registry().lastIndexOf(this));
}

void ExSerializable::serialize(ExSessionData & /*session*/) { }

void ExSerializable::deserialize(ExSessionData & /*session*/) { }

void ExSerializable::cleanVolumeParameters(KxVolume * /*volume*/) { }

bool ExSerializable::unsavedData() const
{
    return false;
}

const char *ExSerializable::persistentName() const
{
    return nullptr;
}

bool ExSerializable::serializeGlobalParameters(KxMsg & /*message*/) const
{
    return false;
}

bool ExSerializable::serializeVolumeParamters(KxMsg & /*message*/, KxImageSeries * /*series*/) const
{
    return false;
}

bool ExSerializable::deserializeGlobalParameters(KxMsg & /*message*/)
{
    return false;
}

bool ExSerializable::deserializeVolumeParamters(KxMsg & /*message*/, KxImageSeries * /*series*/)
{
    return false;
}

void ExSerializable::instances(McDArray<ExSerializable *> &all)
{
    all.clear();
    checkIntegrity();
    all = registry();
}

bool ExSerializable::checkIntegrity()
{
    bool unique = true;
    for (int i = registry().size(); i-- > 0;) {
        const char *const name = registry()[i]->persistentName();
        if (name != nullptr && *name != '\0' && !isUnique(name)) {
            unique = false;
        }
    }
    return unique;
}
