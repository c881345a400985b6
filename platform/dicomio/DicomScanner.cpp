#include "platform/dicomio/DicomScanner.h"

#include "platform/dicomio/DicomCodec.h"
#include "platform/dicomio/DicomDirectoryBuilder.h"
#include "platform/dicomio/DicomHeaderScan.h"
#include "platform/dicomio/DicomMailbox.h"
#include "platform/util/McGuard.h"

#include <string>
#include <system_error>
#include <thread>
#include <unordered_set>
#include <vector>

namespace fs = std::filesystem;

namespace {

/// Finds the files to look at and hands them to a scan, each once.
class FileList
{
public:
    /// @param mayRepeat whether several paths are added, which may lie within each other.
    FileList(DicomHeaderScan &scan, bool mayRepeat, const std::stop_token &stop)
        : m_scan(scan)
        , m_stop(stop)
        , m_mayRepeat(mayRepeat)
    { }

    void add(const McFilename &path);
    [[nodiscard]] const McDArray<DicomScanner::Problem> &problems() const { return m_problems; }

private:
    bool isMediaDirectory(const McFilename &file);
    void addFolder(const McFilename &folder);
    void addFilesOf(const McFilename &folder, std::vector<McFilename> &subfolders);
    void addListedFiles(const McFilename &mediaDirectory);
    void addListedFile(const McFilename &mediaDirectory, const McFilename &listed);
    void addFile(const McFilename &file);
    void addProblem(const McFilename &file, const std::string &reason)
    {
        m_problems.append({file, reason});
    }

    DicomHeaderScan &m_scan;
    const std::stop_token &m_stop;
    const std::unique_ptr<DicomFileHeaderReader> m_reader
        = DicomCodec::instance().makeFileHeaderReader();
    bool m_mayRepeat;
    std::unordered_set<std::string> m_known; ///< as long as files may repeat
    McDArray<DicomScanner::Problem> m_problems;
};

bool isHidden(const McFilename &file)
{
    return file.filename().native().starts_with('.');
}

void FileList::add(const McFilename &given)
{
    const McFilename path = given.lexically_normal();
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        addProblem(path, "There is no such file or folder.");
    } else if (fs::is_directory(status)) {
        addFolder(path);
    } else if (isMediaDirectory(path)) {
        addListedFiles(path);
    } else {
        addFile(path);
    }
}

bool FileList::isMediaDirectory(const McFilename &file)
{
    DicomFileHeader header;
    header.file = file;
    // What is thrown is thrown again, and told of this file, when the scan reads it.
    const std::string problem = McGuard::run([&] { m_reader->read(header); });
    return problem.empty() && header.isMediaDirectory;
}

void FileList::addFile(const McFilename &file)
{
    if (!m_mayRepeat || m_known.insert(file.native()).second) {
        m_scan.add(file);
    }
}

void FileList::addFolder(const McFilename &folder)
{
    std::vector<McFilename> waiting{folder};
    while (!waiting.empty() && !m_stop.stop_requested()) {
        const McFilename next = std::move(waiting.back());
        waiting.pop_back();
        addFilesOf(next, waiting);
    }
}

/// A folder that cannot be read, or goes while it is read, does not keep the others back.
void FileList::addFilesOf(const McFilename &folder, std::vector<McFilename> &subfolders)
{
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    while (!error && entry != fs::directory_iterator() && !m_stop.stop_requested()) {
        const fs::directory_entry &current = *entry;
        std::error_code unknown; // what has gone since is neither
        if (isHidden(current.path())) {
            // Left out.
        } else if (current.is_regular_file(unknown)) {
            addFile(current.path());
        } else if (current.is_directory(unknown) && !current.is_symlink(unknown)) {
            // Links to folders are not followed: they may lead around in a circle.
            subfolders.push_back(current.path());
        }
        entry.increment(error);
    }
    if (error) {
        addProblem(folder, "The folder cannot be read: " + error.message() + ".");
    }
}

/// Names in a media directory are in capitals; file systems may show them in small letters.
McFilename existingFile(const McFilename &folder, const McFilename &listed)
{
    McFilename file = folder;
    std::error_code error;
    for (const McFilename &part : listed) {
        const std::string name = QString::fromStdString(part.string()).toLower().toStdString();
        const bool isSmall = !fs::exists(file / part, error) && fs::exists(file / name, error);
        file /= isSmall ? McFilename(name) : part;
    }
    return file;
}

void FileList::addListedFile(const McFilename &mediaDirectory, const McFilename &listed)
{
    const McFilename inside = listed.lexically_normal();
    if (listed.is_absolute() || *inside.begin() == "..") {
        addProblem(mediaDirectory, "It lists a file outside its folder: " + listed.string() + ".");
        return;
    }
    const McFilename file = existingFile(mediaDirectory.parent_path(), inside).lexically_normal();
    std::error_code error;
    if (fs::is_regular_file(file, error)) {
        addFile(file);
    } else {
        addProblem(file, "The media directory lists this file, but it is missing.");
    }
}

void FileList::addListedFiles(const McFilename &mediaDirectory)
{
    m_mayRepeat = true;
    const std::vector<McFilename> files = DicomCodec::instance().listedFiles(mediaDirectory);
    for (const McFilename &file : files) {
        addListedFile(mediaDirectory, file);
    }
    if (files.empty()) {
        addProblem(mediaDirectory, "The media directory lists no files.");
    }
}

using Headers = std::vector<const DicomFileHeader *>;

/// Notes why the others cannot be used.
Headers usable(const Headers &headers, McDArray<DicomScanner::Problem> &problems)
{
    Headers result;
    result.reserve(headers.size());
    for (const DicomFileHeader *const header : headers) {
        if (!header->error.empty()) {
            problems.append({header->file, header->error});
        } else if (!header->isMediaDirectory) {
            result.push_back(header);
        }
    }
    return result;
}

} // namespace

class DicomScanner::Private
{
public:
    DicomMailbox mailbox;
    Result result;
    bool isRunning = false;
    int generation = 0; ///< tells the running scan from those before it
    std::jthread thread; // last, so that it has ended when the others go
};

DicomScanner::Result DicomScanner::scanNow(
    const McDArray<McFilename> &paths, const Progress &progress, const std::stop_token &stop)
{
    DicomHeaderScan scan(progress, stop);
    FileList list(scan, paths.size() > 1, stop);
    for (const McFilename &path : paths) {
        list.add(path);
    }
    const bool areAllListed = !stop.stop_requested();
    scan.finish();
    Result result;
    result.problems = list.problems();
    result.numFiles = static_cast<int>(scan.headers().size());
    if (!DicomCodec::problem().empty()) {
        // Said once, not of each file.
        result.problems.append({DicomCodec::file(), DicomCodec::problem()});
        return result;
    }
    result.patients = buildDirectory(usable(scan.headers(), result.problems));
    result.wasCancelled = !areAllListed || !scan.isComplete();
    return result;
}

DicomScanner::DicomScanner(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{ }

DicomScanner::~DicomScanner() = default;

void DicomScanner::start(const McDArray<McFilename> &paths)
{
    const int generation = ++d->generation;
    d->isRunning = true;
    const auto report = [this, generation](auto action) {
        d->mailbox.post([this, generation, action] {
            if (generation == d->generation) {
                action();
            }
        });
    };
    // Assigning cancels and awaits the scan before.
    d->thread = std::jthread([this, paths, report](const std::stop_token &stop) {
        const auto progress = [this, report](int done, int total) {
            report([this, done, total] { Q_EMIT progressChanged(done, total); });
        };
        Result result;
        result.failure = McGuard::run([&] { result = scanNow(paths, progress, stop); });
        report([this, result] {
            d->result = result;
            d->isRunning = false;
            Q_EMIT finished();
        });
    });
}

void DicomScanner::cancel()
{
    d->thread.request_stop();
}

bool DicomScanner::isRunning() const
{
    return d->isRunning;
}

const DicomScanner::Result &DicomScanner::result() const
{
    return d->result;
}
