#include "client/loading/ThumbnailMaker.h"

#include "client/viewers/WindowTable.h"
#include "platform/dicomio/DicomVolumeReader.h"
#include "platform/util/McGuard.h"
#include "platform/util/McLogFile.h"

#include <cstring>
#include <optional>

namespace {

using Slice = DicomVolumeReader::Slice;

template <typename Scalar>
double scalarAt(const Slice &slice, std::size_t index)
{
    Scalar scalar{};
    std::memcpy(&scalar, slice.bytes.data() + index * sizeof scalar, sizeof scalar);
    return static_cast<double>(scalar);
}

double valueAt(const Slice &slice, KxVolume::ScalarType type, std::size_t index)
{
    switch (type) {
    case KxVolume::ScalarType::UInt8:
        return scalarAt<std::uint8_t>(slice, index);
    case KxVolume::ScalarType::Int16:
        return scalarAt<std::int16_t>(slice, index);
    case KxVolume::ScalarType::Float32:
        break;
    }
    return scalarAt<float>(slice, index);
}

QImage picture(const KxVolume &volume, const Slice &slice, int pixels)
{
    const KxVolume::Window window = slice.window.value_or(volume.defaultWindow());
    const auto components = static_cast<std::size_t>(volume.components());
    QImage image(volume.dimensions()[0], volume.dimensions()[1], QImage::Format_RGB32);
    std::size_t index = 0;
    for (int y = 0; y < image.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, index += components) {
            const auto level = [&](std::size_t component) {
                return WindowTable::level(
                    valueAt(slice, volume.scalarType(), index + component), window);
            };
            line[x] = components == 3 ? qRgb(level(0), level(1), level(2))
                                      : qRgb(level(0), level(0), level(0));
        }
    }
    return image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// The first slice that the reader hands out is the one in the middle. Null when there is none.
QImage thumbnail(const Zel::DicomDirectoryEntry &entry, int pixels, const std::stop_token &stop)
{
    DicomVolumeReader reader;
    if (!reader.prepare(entry, stop)) {
        return {};
    }
    std::stop_source enough;
    const std::stop_callback givenUp(stop, [&enough] { enough.request_stop(); });
    QImage made;
    reader.readSlices(
        [&](Slice &&slice) {
            if (made.isNull() && slice.problem.empty()) {
                made = picture(*reader.series()->volume(slice.phase), slice, pixels);
            }
            enough.request_stop();
        },
        enough.get_token());
    return made;
}

} // namespace

ThumbnailMaker::ThumbnailMaker(QObject *parent)
    : QObject(parent)
{ }

ThumbnailMaker::~ThumbnailMaker() = default;

void ThumbnailMaker::start(const std::vector<McHandle<Entry>> &entries, int pixels)
{
    stop();
    m_isRunning = true;
    // Reading asks an entry for what it belongs to, which must not go meanwhile.
    std::vector<McHandle<Entry>> trees;
    for (const McHandle<Entry> &entry : entries) {
        trees.emplace_back(entry->topLevel());
    }
    m_thread = std::jthread([this, entries, trees, pixels](const std::stop_token &stopToken) {
        work(entries, pixels, stopToken);
    });
}

void ThumbnailMaker::stop()
{
    m_thread = std::jthread();
    m_isRunning = false;
    ++m_run;
}

void ThumbnailMaker::work(
    const std::vector<McHandle<Entry>> &entries, int pixels, const std::stop_token &stopToken)
{
    const int run = m_run; // Changes only while no thread runs.
    const auto tell = [this, run](auto what) {
        QMetaObject::invokeMethod(
            this,
            [this, run, what] {
                if (run == m_run) {
                    what();
                }
            },
            Qt::QueuedConnection);
    };
    for (const McHandle<Entry> &entry : entries) {
        if (stopToken.stop_requested()) {
            return;
        }
        QImage image;
        const std::string problem
            = McGuard::run([&] { image = thumbnail(*entry, pixels, stopToken); });
        if (!problem.empty()) {
            theLogInstance().warnf(
                "No picture of series %s: %s\n", entry->uid().c_str(), problem.c_str());
        }
        if (!image.isNull()) {
            tell([this, uid = QString::fromStdString(entry->uid()), image] {
                Q_EMIT made(uid, image);
            });
        }
    }
    tell([this] {
        m_isRunning = false;
        Q_EMIT finished();
    });
}
