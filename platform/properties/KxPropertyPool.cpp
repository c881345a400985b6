#include "platform/properties/KxPropertyPool.h"

#include "platform/properties/KxFileSerializer.h"
#include "platform/properties/KxSessionSerializer.h"
#include "platform/properties/KxSiteSettings.h"
#include "platform/util/McLogFile.h"

#include <utility>

namespace {

/// What static initializers may touch before the pool exists. Never destroyed: static destructors
/// may still use settings.
struct PoolState
{
    KxPropertyPool *pool = nullptr;
    std::vector<KxPropertyPool::RegisterFunction> pending;
    KxPropertyPool::PropagationHook hook;
};

PoolState &state()
{
    static auto *const instance = new PoolState;
    return *instance;
}

} // namespace

KxPropertyPool::KxPropertyPool()
    : m_registry(std::make_unique<KxFileSerializer>(
        KxFileSerializer::defaultFileName(), &KxSiteSettings::instance()))
    , m_session(std::make_unique<KxSessionSerializer>(KxSiteSettings::instance()))
{ }

KxPropertyPool::~KxPropertyPool() = default;

KxPropertyPool &KxPropertyPool::instance()
{
    PoolState &s = state();
    if (!s.pool) {
        // The pool is in place before the functions run, since they use it through instance() too.
        s.pool = new KxPropertyPool;
        for (const RegisterFunction &function : std::exchange(s.pending, {})) {
            function(*s.pool);
        }
    }
    return *s.pool;
}

bool KxPropertyPool::addRegisterProperties(RegisterFunction function)
{
    PoolState &s = state();
    if (s.pool) {
        function(*s.pool);
    } else {
        s.pending.push_back(std::move(function));
    }
    return true;
}

KxVariant *KxPropertyPool::addVariant(std::unique_ptr<KxVariant> property)
{
    const QString key = property->key();
    if (key.isEmpty() || m_properties.count(key) != 0) {
        McLogFile::warnf("WARNING - setting \"%s\" cannot be added: %s", qUtf8Printable(key),
            key.isEmpty() ? "it has no key" : "the key is taken");
        return nullptr;
    }
    return (m_properties[key] = std::move(property)).get();
}

KxVariant *KxPropertyPool::variant(const KxPropertyKey &key) const
{
    const auto found = m_properties.find(key.text());
    return found == m_properties.end() ? nullptr : found->second.get();
}

std::list<KxVariant *> KxPropertyPool::properties() const
{
    std::list<KxVariant *> list;
    for (const auto &entry : m_properties) {
        list.push_back(entry.second.get());
    }
    return list;
}

KxVariant &KxPropertyPool::adopt(std::unique_ptr<KxVariant> property)
{
    const QString key = property->key();
    if (!key.isEmpty() && m_properties.count(key) == 0) {
        return *(m_properties[key] = std::move(property));
    }
    McLogFile::warnf("WARNING - setting \"%s\" is asked for with a type that it does not have",
        qUtf8Printable(key));
    m_unlisted.push_back(std::move(property));
    return *m_unlisted.back();
}

KxPropertyPool::PropagationHook KxPropertyPool::setPropagationHook(PropagationHook hook)
{
    return std::exchange(state().hook, std::move(hook));
}

void KxPropertyPool::callPropagationHook(KxVariant &property)
{
    // A copy, since the hook may replace itself.
    if (const PropagationHook hook = state().hook) {
        hook(property);
    }
}
