#include "platform/util/McLogFile.h"

#include <QDir>
#include <QStandardPaths>

#include <spdlog/logger.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <deque>
#include <mutex>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t maximumFileSize = 5U << 20U;
constexpr std::size_t numberOfFiles = 3;

QString logFolder()
{
    QString named = qEnvironmentVariable("MOVARA_LOG_DIR");
    if (!named.isEmpty()) {
        return named;
    }
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/movara/log");
}

/// The text, or as much of it as is kept, not cut inside a character.
std::string keptText(std::string_view text)
{
    if (text.size() <= McLogFile::tailLineLength) {
        return std::string(text);
    }
    constexpr unsigned continuationMask = 0xc0;
    constexpr unsigned continuation = 0x80;
    std::size_t length = McLogFile::tailLineLength;
    while (length > 0
        && (static_cast<unsigned char>(text[length]) & continuationMask) == continuation) {
        --length;
    }
    return std::string(text.substr(0, length)) + "…";
}

/// Keeps the last lines for those who show the log.
class TailSink final : public spdlog::sinks::base_sink<std::mutex>
{
public:
    [[nodiscard]] std::vector<McLogLine> after(std::uint64_t number)
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        const std::uint64_t missed = m_number - std::min(number, m_number);
        const auto count
            = static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(missed, m_lines.size()));
        return {m_lines.end() - count, m_lines.end()};
    }

protected:
    void sink_it_(const spdlog::details::log_msg &message) override
    {
        const bool isWarning = message.level >= spdlog::level::warn;
        m_lines.push_back(
            {++m_number, isWarning ? McLogLine::Level::Warning : McLogLine::Level::Note,
                std::chrono::time_point_cast<std::chrono::system_clock::duration>(message.time),
                keptText({message.payload.data(), message.payload.size()})});
        if (m_lines.size() > McLogFile::tailLines) {
            m_lines.pop_front();
        }
    }
    void flush_() override { }

private:
    std::deque<McLogLine> m_lines;
    std::uint64_t m_number = 0;
};

/// The text of a printf call without trailing line feeds.
__attribute__((format(printf, 1, 0))) std::string formatted(const char *format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text;
    if (length > 0) {
        std::vector<char> buffer(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(buffer.data(), buffer.size(), format, again);
        text.assign(buffer.data(), static_cast<std::size_t>(length));
    }
    va_end(again);
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

} // namespace

class McLogFile::Private
{
public:
    Private()
    {
        auto console = std::make_shared<spdlog::sinks::stderr_sink_mt>();
        console->set_level(spdlog::level::warn);
        console->set_pattern("%v");
        logger.sinks().push_back(console);
        logger.sinks().push_back(tail);
        addFile();
        logger.set_level(spdlog::level::info);
        logger.flush_on(spdlog::level::warn);
    }

    spdlog::logger logger{"movara"};
    std::shared_ptr<TailSink> tail = std::make_shared<TailSink>();
    std::string fileName;

private:
    void addFile()
    {
        const QString folder = logFolder();
        const std::string name = folder.toStdString() + "/movara.log";
        try {
            QDir().mkpath(folder);
            auto file = std::make_shared<spdlog::sinks::rotating_file_sink_mt>(
                name, maximumFileSize, numberOfFiles);
            file->set_pattern("%Y-%m-%d %H:%M:%S.%e %L %v");
            logger.sinks().push_back(file);
            fileName = name;
        } catch (const spdlog::spdlog_ex &problem) {
            logger.warn("The log cannot be written to {}: {}", name, problem.what());
        }
    }
};

McLogFile::McLogFile()
    : d(std::make_unique<Private>())
{ }

McLogFile::~McLogFile() = default;

void McLogFile::print(const std::string &tag, const std::string &text)
{
    d->logger.info("[{}] {}", tag, text);
}

void McLogFile::warnf(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    theLogInstance().d->logger.warn(formatted(format, arguments));
    va_end(arguments);
}

void McLogFile::infof(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    theLogInstance().d->logger.info(formatted(format, arguments));
    va_end(arguments);
}

std::string McLogFile::fileName() const
{
    return d->fileName;
}

std::vector<McLogLine> McLogFile::tail(std::uint64_t after) const
{
    return d->tail->after(after);
}

void McLogFile::flush()
{
    d->logger.flush();
}

McLogFile &theLogInstance()
{
    // Never destroyed: destructors of static objects may still have something to say.
    static auto *const instance = new McLogFile;
    return *instance;
}
