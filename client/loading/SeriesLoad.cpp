#include "client/loading/SeriesLoad.h"

#include "platform/dicomio/DicomVolumeLoader.h"
#include "platform/render/KxEngine.h"
#include "platform/util/McLogFile.h"

#include <QCoreApplication>
#include <QEvent>

namespace {

constexpr int changeMilliseconds = 100;

} // namespace

SeriesLoad::SeriesLoad(const McHandle<LoadedSeries> &series,
    const McHandle<Zel::DicomDirectoryEntry> &entry, QObject *parent)
    : QObject(parent)
    , m_series(series)
    , m_entry(entry)
    , m_loader(new DicomVolumeLoader(this))
{
    m_changeTimer.setSingleShot(true);
    m_changeTimer.setInterval(changeMilliseconds);
    connect(&m_changeTimer, &QTimer::timeout, this, &SeriesLoad::changed);
    connect(m_loader, &DicomVolumeLoader::prepared, this, &SeriesLoad::prepared);
    connect(m_loader, &DicomVolumeLoader::sliceLoaded, this, &SeriesLoad::sliceLoaded);
    connect(m_loader, &DicomVolumeLoader::windowEstimated, this, &SeriesLoad::changed);
    connect(m_loader, &DicomVolumeLoader::sliceFailed, this,
        [this](int, int, const QString &reason) { sliceFailed(reason); });
    connect(m_loader, &DicomVolumeLoader::progressChanged, this, [this](int done, int total) {
        m_series->setProgress(total > 0 ? static_cast<double>(done) / total : 0);
    });
    connect(m_loader, &DicomVolumeLoader::failed, this, &SeriesLoad::failed);
    connect(m_loader, &DicomVolumeLoader::finished, this, &SeriesLoad::finished);
}

SeriesLoad::~SeriesLoad() = default;

void SeriesLoad::start()
{
    m_loader->start(m_entry);
}

void SeriesLoad::cancel()
{
    m_loader->cancel();
}

void SeriesLoad::prepared()
{
    m_series->setImages(m_loader->series());
    for (const std::string &remark : m_loader->remarks()) {
        addRemark(QString::fromStdString(remark));
    }
    Q_EMIT changed();
}

void SeriesLoad::sliceLoaded()
{
    if (!m_hasSlice) {
        m_hasSlice = true;
        Q_EMIT changed();
        // The first image is to be seen at once, however fast the next slices come.
        KxEngine::instance().renderQueue().flush();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
    } else if (!m_changeTimer.isActive()) {
        m_changeTimer.start();
    }
}

void SeriesLoad::sliceFailed(const QString &reason)
{
    ++m_failedSlices;
    theLogInstance().warnf("Series %s: %s\n", m_series->uid().c_str(), reason.toUtf8().constData());
    sliceLoaded();
}

void SeriesLoad::failed(const QString &reason)
{
    addRemark(reason);
    end();
}

void SeriesLoad::finished(bool complete)
{
    if (!complete) {
        addRemark(tr("incomplete: reading was cancelled"));
    } else if (m_failedSlices > 0) {
        addRemark(tr("slices that could not be read: %1").arg(m_failedSlices));
    }
    end();
}

void SeriesLoad::addRemark(const QString &remark)
{
    const QString &before = m_series->remark();
    m_series->setRemark(before.isEmpty() ? remark : before % QLatin1Char('\n') % remark);
}

void SeriesLoad::end()
{
    m_changeTimer.stop();
    m_series->setComplete();
    Q_EMIT changed();
    Q_EMIT ended();
}
