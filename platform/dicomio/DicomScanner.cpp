#include "platform/dicomio/DicomScanner.h"

#include "platform/dicomio/DicomCodec.h"
#include "platform/dicomio/DicomDirectoryBuilder.h"
#include "platform/dicomio/DicomMailbox.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace {

/// Collects the files to look at, each once.
class FileList
{
public:
    FileList(const DicomScanner::Progress &progress, const std::stop_token &stop)
        : m_progress(progress)
        , m_stop(stop)
    { }

    void add(const McFilename &path);
    [[nodiscard]] const McDArray<DicomScanner::Problem> &problems() const { return m_problems; }
    /// Gives them away.
    [[nodiscard]] std::vector<McFilename> takeSorted();

private:
    void addFolder(const McFilename &folder);
    void addFilesOf(const McFilename &folder, std::vector<McFilename> &subfolders);
    void addListedFiles(const McFilename &mediaDirectory);
    void addListedFile(const McFilename &mediaDirectory, const McFilename &listed);
    void addFile(const McFilename &file);
    void addProblem(const McFilename &file, const std::string &reason)
    {
        m_problems.append({file, reason});
    }

    const DicomScanner::Progress &m_progress;
    const std::stop_token &m_stop;
    std::vector<McFilename> m_files;
    McDArray<DicomScanner::Problem> m_problems;
};

bool isHidden(const McFilename &file)
{
    return file.filename().native().starts_with('.');
}

/// Folder by folder, as paths compare, but without taking them apart for each comparison.
bool comesBefore(const McFilename &a, const McFilename &b)
{
    const auto rank = [](char c) { return c == '/' ? 0 : 1 + static_cast<unsigned char>(c); };
    const std::string &x = a.native();
    const std::string &y = b.native();
    const auto [inX, inY] = std::mismatch(x.begin(), x.end(), y.begin(), y.end());
    return inY != y.end() && (inX == x.end() || rank(*inX) < rank(*inY));
}

std::vector<McFilename> FileList::takeSorted()
{
    std::sort(m_files.begin(), m_files.end(), comesBefore);
    const auto isSame
        = [](const McFilename &a, const McFilename &b) { return a.native() == b.native(); };
    m_files.erase(std::unique(m_files.begin(), m_files.end(), isSame), m_files.end());
    return std::move(m_files);
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
    } else if (DicomCodec::instance().readFileHeader(path).isMediaDirectory) {
        addListedFiles(path);
    } else {
        addFile(path);
    }
}

void FileList::addFile(const McFilename &file)
{
    m_files.push_back(file);
    constexpr std::size_t often = 256;
    if (m_progress && m_files.size() % often == 0) {
        m_progress(0, -1);
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
    const std::vector<McFilename> files = DicomCodec::instance().listedFiles(mediaDirectory);
    for (const McFilename &file : files) {
        addListedFile(mediaDirectory, file);
    }
    if (files.empty()) {
        addProblem(mediaDirectory, "The media directory lists no files.");
    }
}

/// Reads the headers of all files in several threads.
class HeaderScan
{
public:
    HeaderScan(const std::vector<McFilename> &files, const DicomScanner::Progress &progress,
        const std::stop_token &stop)
        : m_files(files)
        , m_progress(progress)
        , m_stop(stop)
        , m_headers(files.size())
    { }

    /// One header a file, in the order of the files; not read ones have neither error nor content.
    std::vector<DicomFileHeader> run()
    {
        constexpr unsigned mostThreads = 8;
        const unsigned cores = std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads);
        const auto threads = std::min<std::size_t>(cores, m_files.size());
        {
            std::vector<std::jthread> workers;
            for (std::size_t i = 1; i < threads; ++i) {
                workers.emplace_back([this] { work(); });
            }
            work();
        }
        return std::move(m_headers);
    }

private:
    void work()
    {
        while (!m_stop.stop_requested()) {
            const std::size_t index = m_next.fetch_add(1);
            if (index >= m_files.size()) {
                return;
            }
            m_headers[index] = m_codec.readFileHeader(m_files[index]);
            tellProgress();
        }
    }

    void tellProgress()
    {
        if (!m_progress) {
            return;
        }
        const std::lock_guard lock(m_progressMutex);
        ++m_done;
        // A display is not to be flooded: a hundred steps are enough.
        const std::size_t step = m_files.size() / 100 + 1;
        if (m_done % step == 0 || m_done == m_files.size()) {
            m_progress(static_cast<int>(m_done), static_cast<int>(m_files.size()));
        }
    }

    DicomCodec &m_codec = DicomCodec::instance();
    const std::vector<McFilename> &m_files;
    const DicomScanner::Progress &m_progress;
    const std::stop_token &m_stop;
    std::vector<DicomFileHeader> m_headers;
    std::atomic<std::size_t> m_next = 0;
    std::mutex m_progressMutex;
    std::size_t m_done = 0;
};

/// Takes out headers that cannot be used, and notes why.
void keepUsable(std::vector<DicomFileHeader> &headers, McDArray<DicomScanner::Problem> &problems)
{
    std::erase_if(headers, [&problems](const DicomFileHeader &header) {
        if (!header.error.empty()) {
            problems.append({header.file, header.error});
        }
        return !header.error.empty() || header.file.empty() || header.isMediaDirectory;
    });
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
    FileList list(progress, stop);
    for (const McFilename &path : paths) {
        list.add(path);
    }
    const bool areAllListed = !stop.stop_requested();
    const std::vector<McFilename> files = list.takeSorted();
    Result result;
    result.problems = list.problems();
    if (!DicomCodec::problem().empty()) {
        // Said once, not of each file.
        result.problems.append({DicomCodec::file(), DicomCodec::problem()});
        result.numFiles = static_cast<int>(files.size());
        return result;
    }
    std::vector<DicomFileHeader> headers = HeaderScan(files, progress, stop).run();
    result.numFiles = static_cast<int>(std::count_if(headers.begin(), headers.end(),
        [](const DicomFileHeader &header) { return !header.file.empty(); }));
    keepUsable(headers, result.problems);
    result.patients = buildDirectory(headers);
    result.wasCancelled = !areAllListed || result.numFiles < static_cast<int>(files.size());
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
        const Result result = scanNow(paths, progress, stop);
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
