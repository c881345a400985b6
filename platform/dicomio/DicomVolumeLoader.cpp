#include "platform/dicomio/DicomVolumeLoader.h"

#include "platform/dicomio/DicomMailbox.h"
#include "platform/dicomio/DicomVolumeReader.h"
#include "platform/util/McGuard.h"

#include <algorithm>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace {

using Slice = DicomVolumeReader::Slice;

/// Slices on their way from the loading thread to the loader's. Holds only so many, so that a
/// receiver that is busy drawing is not buried.
class SliceQueue
{
public:
    /// Waits for room. @return whether the receiver must be woken up; false, too, when stopped.
    bool push(Slice &&slice, const std::stop_token &stop)
    {
        std::unique_lock lock(m_mutex);
        constexpr std::size_t most = 16;
        if (!m_room.wait(lock, stop, [this] { return m_slices.size() < most; })) {
            return false;
        }
        m_slices.push_back(std::move(slice));
        return m_slices.size() == 1;
    }

    /// The first one; none when the queue is empty.
    std::optional<Slice> take()
    {
        const std::lock_guard lock(m_mutex);
        if (m_slices.empty()) {
            return std::nullopt;
        }
        std::optional<Slice> first(std::move(m_slices.front()));
        m_slices.pop_front();
        m_room.notify_all();
        return first;
    }

private:
    std::mutex m_mutex;
    std::condition_variable_any m_room;
    std::deque<Slice> m_slices;
};

/// One load. Shared by the loading thread and the events that it posts.
struct Load
{
    DicomVolumeReader reader;
    SliceQueue queue;
    /// Until it has ended, another one has begun, or the loader is gone, of which nothing may be
    /// touched then. For the loader's thread only.
    bool isCurrent = true;
};

} // namespace

class DicomVolumeLoader::Private
{
public:
    explicit Private(DicomVolumeLoader &loader)
        : q(loader)
    { }

    /// Makes this the current load, or none.
    void setLoad(std::shared_ptr<Load> next);
    void work(const std::shared_ptr<Load> &running, const McHandle<Zel::DicomDirectoryEntry> &entry,
        const std::stop_token &stop);
    /// Has @p action done in the loader's thread, unless another load has begun by then.
    template <typename Action>
    void post(const std::shared_ptr<Load> &running, Action action);
    void drain(const std::shared_ptr<Load> &running);
    void deliver(const Slice &slice);
    void end(const std::shared_ptr<Load> &running, bool complete);
    void fail(const std::shared_ptr<Load> &running, const QString &reason);

    DicomVolumeLoader &q;
    std::shared_ptr<Load> load; ///< the running one, else null
    McHandle<KxImageSeries> series;
    McDArray<std::string> remarks;
    McHandle<Zel::DicomDirectoryEntry> owner; ///< the series of what is being read
    int done = 0;
    int total = 0;
    DicomMailbox mailbox;
    std::jthread thread; // last, so that it has ended when the others go
};

void DicomVolumeLoader::Private::setLoad(std::shared_ptr<Load> next)
{
    if (load) {
        load->isCurrent = false;
    }
    load = std::move(next);
}

template <typename Action>
void DicomVolumeLoader::Private::post(const std::shared_ptr<Load> &running, Action action)
{
    mailbox.post([running, action] {
        if (running->isCurrent) {
            action();
        }
    });
}

void DicomVolumeLoader::Private::work(const std::shared_ptr<Load> &running,
    const McHandle<Zel::DicomDirectoryEntry> &entry, const std::stop_token &stop)
{
    DicomVolumeReader &reader = running->reader;
    if (!reader.prepare(*entry, stop)) {
        const QString reason = QString::fromStdString(reader.errorText());
        const bool cancelled = stop.stop_requested();
        post(running, [this, running, reason, cancelled] {
            cancelled ? end(running, false) : fail(running, reason);
        });
        return;
    }
    post(running,
        [this, series = reader.series(), remarks = reader.remarks(), total = reader.numSlices()] {
            this->series = series;
            this->remarks = remarks;
            this->total = total;
            Q_EMIT q.prepared();
        });
    const auto receiver = [this, &running, &stop](Slice &&slice) {
        if (running->queue.push(std::move(slice), stop)) {
            post(running, [this, running] { drain(running); });
        }
    };
    const bool complete = reader.readSlices(receiver, stop) && !stop.stop_requested();
    post(running, [this, running, complete] { end(running, complete); });
}

void DicomVolumeLoader::Private::drain(const std::shared_ptr<Load> &running)
{
    // One at a time: a receiver of the signals may cancel, start another load or destroy the
    // loader, or run an event loop, in which the load goes on.
    bool isFollowed = false;
    while (running->isCurrent && !thread.get_stop_token().stop_requested()) {
        const std::optional<Slice> slice = running->queue.take();
        if (!slice) {
            return;
        }
        if (!std::exchange(isFollowed, true)) {
            post(running, [this, running] { drain(running); });
        }
        deliver(*slice);
    }
}

void DicomVolumeLoader::Private::deliver(const Slice &slice)
{
    KxVolume *const volume = series->volume(slice.phase);
    std::memcpy(volume->slice(slice.z), slice.bytes.data(), slice.bytes.size());
    ++done;
    const std::shared_ptr<Load> running = load;
    if (slice.window) {
        volume->setDefaultWindow(*slice.window);
        Q_EMIT q.windowEstimated(slice.phase);
        if (!running->isCurrent) {
            return;
        }
    }
    if (slice.problem.empty()) {
        Q_EMIT q.sliceLoaded(slice.phase, slice.z);
    } else {
        Q_EMIT q.sliceFailed(slice.phase, slice.z, QString::fromStdString(slice.problem));
    }
    if (running->isCurrent) {
        Q_EMIT q.progressChanged(done, total);
    }
}

void DicomVolumeLoader::Private::end(const std::shared_ptr<Load> &running, bool complete)
{
    drain(running);
    if (running->isCurrent) {
        setLoad(nullptr);
        Q_EMIT q.finished(complete && done == total);
    }
}

void DicomVolumeLoader::Private::fail(const std::shared_ptr<Load> &running, const QString &reason)
{
    drain(running);
    if (running->isCurrent) {
        setLoad(nullptr);
        Q_EMIT q.failed(reason);
    }
}

DicomVolumeLoader::DicomVolumeLoader(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(*this))
{ }

DicomVolumeLoader::~DicomVolumeLoader()
{
    d->setLoad(nullptr);
}

void DicomVolumeLoader::start(const McHandle<Zel::DicomDirectoryEntry> &entry)
{
    d->setLoad(std::make_shared<Load>());
    d->series.reset();
    d->remarks.clear();
    d->done = 0;
    d->total = 0;
    // The reader asks a stored volume for its series. Held here, that stays while it runs, and goes
    // in this thread, as it takes itself out of its volumes then.
    const McHandle<Zel::DicomDirectoryEntry> owner(
        entry->ancestor(Zel::DicomDirectoryEntry::Series));
    // Assigning cancels and awaits the load before.
    d->thread = std::jthread([this, load = d->load, entry](const std::stop_token &stop) {
        const std::string problem = McGuard::run([&] { d->work(load, entry, stop); });
        if (!problem.empty()) {
            d->post(
                load, [this, load, problem] { d->fail(load, QString::fromStdString(problem)); });
        }
    });
    d->owner = owner;
}

void DicomVolumeLoader::cancel()
{
    d->thread.request_stop();
}

bool DicomVolumeLoader::isRunning() const
{
    return d->load != nullptr;
}

const McHandle<KxImageSeries> &DicomVolumeLoader::series() const
{
    return d->series;
}

const McDArray<std::string> &DicomVolumeLoader::remarks() const
{
    return d->remarks;
}
