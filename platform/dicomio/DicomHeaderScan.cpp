#include "platform/dicomio/DicomHeaderScan.h"

#include "platform/dicomio/DicomCodec.h"
#include "platform/dicomio/DicomParallel.h"
#include "platform/util/McGuard.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

/// So many files that finding them takes its time: they are told of, and read at once.
constexpr std::size_t sliceSize = 256;

/// Folder by folder, as paths compare, but without taking them apart for each comparison.
bool comesBefore(const McFilename &a, const McFilename &b)
{
    const auto rank = [](char c) { return c == '/' ? 0 : 1 + static_cast<unsigned char>(c); };
    const std::string &x = a.native();
    const std::string &y = b.native();
    const auto [inX, inY] = std::mismatch(x.begin(), x.end(), y.begin(), y.end());
    return inY != y.end() && (inX == x.end() || rank(*inX) < rank(*inY));
}

} // namespace

DicomHeaderScan::DicomHeaderScan(
    const DicomScanner::Progress &progress, const std::stop_token &stop)
    : m_progress(progress)
    , m_stop(stop)
{ }

DicomHeaderScan::~DicomHeaderScan()
{
    {
        const std::lock_guard lock(m_mutex);
        m_next = m_numEntries;
        m_isListed = true;
    }
    m_hasNews.notify_all();
    m_threads.clear();
    try {
        // There may be a lot to free.
        inParallel(m_slices.size(), [this](std::size_t slice) { m_slices[slice] = {}; });
    } catch (...) {
        m_slices.clear(); // There may be too little memory for threads: then here.
    }
}

void DicomHeaderScan::add(const McFilename &file)
{
    std::size_t count = 0;
    {
        const std::lock_guard lock(m_mutex);
        if (m_numEntries % sliceSize == 0) {
            m_slices.emplace_back().reserve(sliceSize);
        }
        m_slices.back().emplace_back().header.file = file;
        count = ++m_numEntries;
    }
    m_hasNews.notify_one();
    if (count % sliceSize == 0) {
        tellListing();
    }
    if (count == sliceSize) {
        startThreads(numDicomThreads() - 1);
    }
}

void DicomHeaderScan::startThreads(std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        m_threads.emplace_back([this] {
            try {
                work();
            } catch (...) {
                const std::lock_guard lock(m_mutex);
                m_thrown = std::current_exception();
            }
        });
    }
}

void DicomHeaderScan::finish()
{
    tellListed();
    {
        const std::lock_guard lock(m_mutex);
        m_isListed = true;
    }
    m_hasNews.notify_all();
    if (m_threads.empty()) {
        startThreads(std::min(numDicomThreads(), std::max<std::size_t>(m_numEntries, 1)) - 1);
    }
    const std::vector<const Entry *> sorted = sortedEntries();
    work();
    m_threads.clear();
    if (m_thrown) {
        std::rethrow_exception(m_thrown);
    }
    m_read.reserve(sorted.size());
    for (const Entry *const entry : sorted) {
        if (entry->isRead) {
            m_read.push_back(&entry->header);
        }
    }
}

std::vector<const DicomHeaderScan::Entry *> DicomHeaderScan::sortedEntries() const
{
    std::vector<const Entry *> sorted;
    sorted.reserve(m_numEntries);
    for (const std::vector<Entry> &slice : m_slices) {
        for (const Entry &entry : slice) {
            sorted.push_back(&entry);
        }
    }
    std::sort(sorted.begin(), sorted.end(),
        [](const Entry *a, const Entry *b) { return comesBefore(a->header.file, b->header.file); });
    return sorted;
}

void DicomHeaderScan::work()
{
    const auto reader = DicomCodec::instance().makeFileHeaderReader();
    while (Entry *const entry = next()) {
        DicomFileHeader &header = entry->header;
        std::string problem = McGuard::run([&] { reader->read(header); });
        if (!problem.empty()) {
            header.error = std::move(problem);
        }
        entry->isRead = true;
        tellRead();
    }
}

/// Null when there is nothing more to do.
DicomHeaderScan::Entry *DicomHeaderScan::next()
{
    std::unique_lock lock(m_mutex);
    m_hasNews.wait(lock, [this] { return m_next < m_numEntries || m_isListed; });
    if (m_stop.stop_requested() || m_next == m_numEntries) {
        return nullptr;
    }
    const std::size_t index = m_next++;
    return &m_slices[index / sliceSize][index % sliceSize];
}

void DicomHeaderScan::tellListing()
{
    const std::lock_guard lock(m_progressMutex);
    if (m_progress) {
        m_progress(0, -1);
    }
}

void DicomHeaderScan::tellListed()
{
    const std::lock_guard lock(m_progressMutex);
    m_numListed = m_numEntries;
    if (m_progress && m_numListed > 0 && m_numDone == m_numListed) {
        tellDone();
    }
}

void DicomHeaderScan::tellRead()
{
    if (!m_progress) {
        return;
    }
    const std::lock_guard lock(m_progressMutex);
    ++m_numDone;
    // A display is not to be flooded: a hundred steps are enough.
    const std::size_t step = m_numListed / 100 + 1;
    if (m_numListed > 0 && (m_numDone % step == 0 || m_numDone == m_numListed)) {
        tellDone();
    }
}

void DicomHeaderScan::tellDone() const
{
    m_progress(static_cast<int>(m_numDone), static_cast<int>(m_numListed));
}
