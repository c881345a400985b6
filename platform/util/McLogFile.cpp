#include "platform/util/McLogFile.h"

#include <QDir>
#include <QStandardPaths>

#include <spdlog/logger.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <cstdarg>
#include <cstdio>
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
        addFile();
        logger.set_level(spdlog::level::info);
        logger.flush_on(spdlog::level::warn);
    }

    spdlog::logger logger{"movara"};
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
