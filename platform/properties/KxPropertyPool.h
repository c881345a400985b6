#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/properties/KxProperty.h"

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <vector>

/// All settings of the process by key, and the two stores they may use. Made on first use, never
/// destroyed: references to its settings stay valid for the life of the process. GUI thread only.
class MOVARA_PLATFORM_EXPORT KxPropertyPool
{
public:
    /// Attribute of a setting: the texts among which the user chooses its value.
    static constexpr const char *ATTRIBUTE_FLAG_LIST = "FlagList";

    using RegisterFunction = std::function<void(KxPropertyPool &)>;
    using PropagationHook = std::function<void(KxVariant &)>;

    /// The one pool. The first call runs the functions given to addRegisterProperties(), in the
    /// order given.
    static KxPropertyPool &instance();
    /// Has @p function register settings when the pool is first used, or at once when it already
    /// is. Meant for static initializers; always true, so that it can initialise a constant.
    static bool addRegisterProperties(RegisterFunction function);

    KxPropertyPool(const KxPropertyPool &) = delete;
    KxPropertyPool &operator=(const KxPropertyPool &) = delete;

    /// Adds a setting and returns it. Null, with a warning in the log, when the key is empty or
    /// already taken: register a key only when it is absent.
    KxVariant *addVariant(std::unique_ptr<KxVariant> property);
    /// The setting under @p key, or null.
    [[nodiscard]] KxVariant *variant(const KxPropertyKey &key) const;
    /// The setting under @p key when it is a KxProperty<T>, else null.
    template <typename T>
    [[nodiscard]] KxProperty<T> *find(const KxPropertyKey &key) const
    {
        return dynamic_cast<KxProperty<T> *>(variant(key));
    }
    /// The KxProperty<T> under @p key, added with this default and store when the key is absent.
    /// When the key is taken by a setting of another type, a setting that is not listed in the
    /// pool, with a warning in the log.
    template <typename T>
    KxProperty<T> &property(
        const KxPropertyKey &key, const T &defaultValue, KxPropertySerializer &serializer)
    {
        if (KxProperty<T> *existing = find<T>(key)) {
            return *existing;
        }
        for (const auto &unlisted : m_unlisted) {
            auto *existing = dynamic_cast<KxProperty<T> *>(unlisted.get());
            if (existing && existing->key() == key.text()) {
                return *existing;
            }
        }
        return static_cast<KxProperty<T> &>(
            adopt(std::make_unique<KxProperty<T>>(key, defaultValue, serializer)));
    }
    /// All settings in key order.
    [[nodiscard]] std::list<KxVariant *> properties() const;

    /// The store that survives restarts (KxFileSerializer): an INI file named by the environment
    /// variable MOVARA_SETTINGS_FILE, else "movara/settings.ini" in the user's configuration
    /// folder, over the site's defaults.
    [[nodiscard]] KxPropertySerializer &registrySerializer() { return *m_registry; }
    /// The store of this session (KxSessionSerializer), which begins with the site's defaults.
    [[nodiscard]] KxPropertySerializer &defaultSerializer() { return *m_session; }

    /// Installs what KxVariant::propagate() calls after the setting's own listeners, so that an
    /// upper layer can tell of changes in its own way. Returns the hook installed before; an empty
    /// function ends it.
    static PropagationHook setPropagationHook(PropagationHook hook);

private:
    friend class KxVariant;
    KxPropertyPool();
    ~KxPropertyPool();
    static void callPropagationHook(KxVariant &property);
    KxVariant &adopt(std::unique_ptr<KxVariant> property);

    std::unique_ptr<KxPropertySerializer> m_registry;
    std::unique_ptr<KxPropertySerializer> m_session;
    std::map<QString, std::unique_ptr<KxVariant>> m_properties;
    std::vector<std::unique_ptr<KxVariant>> m_unlisted;
};
