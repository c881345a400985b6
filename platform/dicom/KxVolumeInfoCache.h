#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/util/HxParamBundle.h"
#include "platform/util/McFilename.h"
#include "platform/util/McHandle.h"

#include <functional>
#include <memory>

/// Header attributes of the files asked about last, so that a file is not parsed at every question.
/// Any thread. A file that changed on disk since is read again; one that cannot be read is not
/// remembered.
class MOVARA_PLATFORM_EXPORT KxVolumeInfoCache
{
public:
    /// Reads the header of a file; null when it cannot be read. Called in the asking thread, in
    /// several threads at once, and with no lock held.
    using HeaderReader = std::function<McHandle<HxParamBundle>(const McFilename &)>;

    /// @param capacity files remembered, at least 1.
    explicit KxVolumeInfoCache(int capacity = 4096);
    ~KxVolumeInfoCache();
    KxVolumeInfoCache(const KxVolumeInfoCache &) = delete;
    KxVolumeInfoCache &operator=(const KxVolumeInfoCache &) = delete;

    /// The cache of the program.
    static KxVolumeInfoCache &instance();

    /// Sets the reader and forgets what an earlier one read. Without a reader no file can be read.
    void setHeaderReader(HeaderReader reader);
    /// The header attributes of a file; null when it cannot be read.
    [[nodiscard]] McHandle<HxParamBundle> parameterBundle(const McFilename &file);

    /// Whether the file of a stored volume is there and its header can be read; without a reader,
    /// whether it is there. Clients that read headers in their own way must be able to load.
    [[nodiscard]] bool haveCachedVolumeFile(const McFilename &file);
    /// Whether the folder that holds @p file can be read at all; false when a disk or share is
    /// away.
    [[nodiscard]] static bool isStorageReadable(const McFilename &file);

    /// Number of files remembered now.
    [[nodiscard]] int size() const;
    void clear();

private:
    class Private;
    std::unique_ptr<Private> d;
};
