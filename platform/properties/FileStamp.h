#pragma once

#include <QString>

#include <cstdint>

/// Tells whether a file is still the one that was looked at. Equal stamps of a file that is only
/// ever replaced as a whole mean the same content, however fast it is written.
struct FileStamp
{
    /// The stamp of the file @p name now; one of its own for a file that is not there.
    static FileStamp of(const QString &name);

    std::uint64_t file = 0; ///< the file system's number for it
    std::int64_t seconds = -1; ///< last change
    std::int64_t nanoseconds = -1;
    std::int64_t size = -1;

    friend bool operator==(const FileStamp &, const FileStamp &) = default;
};
