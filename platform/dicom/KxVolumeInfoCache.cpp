#include "platform/dicom/KxVolumeInfoCache.h"

#include "platform/util/McMutex.h"

#include <algorithm>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <system_error>

namespace {

/// What tells that a file is still the one that was read.
struct Stamp
{
    std::filesystem::file_time_type changed;
    std::uintmax_t size = 0;

    bool operator==(const Stamp &) const = default;
};

std::optional<Stamp> stampOf(const McFilename &file)
{
    std::error_code error;
    Stamp stamp;
    stamp.size = std::filesystem::file_size(file, error);
    if (error) {
        return std::nullopt;
    }
    stamp.changed = std::filesystem::last_write_time(file, error);
    return error ? std::nullopt : std::optional<Stamp>(stamp);
}

} // namespace

class KxVolumeInfoCache::Private
{
public:
    struct Item
    {
        McFilename file;
        Stamp stamp;
        McHandle<HxParamBundle> bundle;
    };
    using Items = std::list<Item>;

    McHandle<HxParamBundle> find(const McFilename &file, const Stamp &stamp)
    {
        const auto found = positions.find(file);
        if (found == positions.end() || found->second->stamp != stamp) {
            return nullptr;
        }
        items.splice(items.begin(), items, found->second);
        return found->second->bundle;
    }

    void insert(Item item)
    {
        const auto old = positions.find(item.file);
        if (old != positions.end()) {
            items.erase(old->second);
            positions.erase(old);
        }
        items.push_front(std::move(item));
        positions[items.front().file] = items.begin();
        if (items.size() > capacity) {
            positions.erase(items.back().file);
            items.pop_back();
        }
    }

    void clear()
    {
        positions.clear();
        items.clear();
    }

    mutable McMutex mutex;
    std::size_t capacity = 1;
    HeaderReader reader;
    int readerGeneration = 0;
    Items items; // the one asked about last comes first
    std::map<McFilename, Items::iterator> positions;
};

KxVolumeInfoCache::KxVolumeInfoCache(int capacity)
    : d(std::make_unique<Private>())
{
    d->capacity = static_cast<std::size_t>(std::max(capacity, 1));
}

KxVolumeInfoCache::~KxVolumeInfoCache() = default;

KxVolumeInfoCache &KxVolumeInfoCache::instance()
{
    static KxVolumeInfoCache cache;
    return cache;
}

void KxVolumeInfoCache::setHeaderReader(HeaderReader reader)
{
    const std::lock_guard lock(d->mutex);
    d->reader = std::move(reader);
    ++d->readerGeneration;
    d->clear();
}

McHandle<HxParamBundle> KxVolumeInfoCache::parameterBundle(const McFilename &file)
{
    const std::optional<Stamp> stamp = stampOf(file);
    if (!stamp) {
        return nullptr;
    }
    HeaderReader reader;
    int generation = 0;
    {
        const std::lock_guard lock(d->mutex);
        if (McHandle<HxParamBundle> known = d->find(file, *stamp)) {
            return known;
        }
        reader = d->reader;
        generation = d->readerGeneration;
    }
    McHandle<HxParamBundle> bundle = reader ? reader(file) : nullptr;
    if (bundle) {
        const std::lock_guard lock(d->mutex);
        // What a reader delivers that was replaced meanwhile is not remembered.
        if (generation == d->readerGeneration) {
            d->insert({file, *stamp, bundle});
        }
    }
    return bundle;
}

bool KxVolumeInfoCache::haveCachedVolumeFile(const McFilename &file)
{
    bool hasReader = false;
    {
        const std::lock_guard lock(d->mutex);
        hasReader = bool(d->reader);
    }
    return hasReader ? bool(parameterBundle(file)) : stampOf(file).has_value();
}

bool KxVolumeInfoCache::isStorageReadable(const McFilename &file)
{
    std::error_code error;
    const McFilename folder = file.has_parent_path() ? file.parent_path() : McFilename(".");
    const std::filesystem::directory_iterator entries(folder, error);
    return !error;
}

int KxVolumeInfoCache::size() const
{
    const std::lock_guard lock(d->mutex);
    return static_cast<int>(d->items.size());
}

void KxVolumeInfoCache::clear()
{
    const std::lock_guard lock(d->mutex);
    d->clear();
}
