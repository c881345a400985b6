#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/util/McLogLine.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// The program's log: a rotating file (three of 5 MB), and the standard error stream for warnings.
/// Any thread. The file is "movara.log" in the folder named by MOVARA_LOG_DIR, else in the user's
/// local data folder. A file that cannot be written is said once on the standard error stream; the
/// log then goes on without it.
class MOVARA_PLATFORM_EXPORT McLogFile
{
public:
    /// So many lines are kept in memory, of so many bytes each at most.
    static constexpr std::size_t tailLines = 5000;
    static constexpr std::size_t tailLineLength = 4096;

    McLogFile();
    ~McLogFile();
    McLogFile(const McLogFile &) = delete;
    McLogFile &operator=(const McLogFile &) = delete;

    /// Writes one line under a tag that names its origin, e.g. "ToolLog". Both are UTF-8.
    void print(const std::string &tag, const std::string &text);
    /// Writes a warning to the program's log. printf format; a trailing line feed is dropped.
    static void warnf(const char *format, ...) __attribute__((format(printf, 1, 2)));
    /// Writes a note to the program's log. printf format; a trailing line feed is dropped.
    static void infof(const char *format, ...) __attribute__((format(printf, 1, 2)));

    /// Full name of the file written to; empty when there is none.
    [[nodiscard]] std::string fileName() const;
    /// The last lines, oldest first: those of the tailLines written last whose number is above
    /// @p after. To follow the log, ask now and then for what came after the last line got.
    [[nodiscard]] std::vector<McLogLine> tail(std::uint64_t after = 0) const;
    /// Forces out what is buffered.
    void flush();

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// The one log of the program; made on first use and usable until the process has ended.
MOVARA_PLATFORM_EXPORT McLogFile &theLogInstance();
