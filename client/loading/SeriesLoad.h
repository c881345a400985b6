#pragma once

#include "client/data/LoadedSeries.h"
#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McHandle.h"

#include <QObject>
#include <QTimer>

class DicomVolumeLoader;

/// Reads one series in the background and keeps its LoadedSeries up to date. Owned by the study
/// session. GUI thread only.
class SeriesLoad final : public QObject
{
    Q_OBJECT

public:
    SeriesLoad(const McHandle<LoadedSeries> &series,
        const McHandle<Zel::DicomDirectoryEntry> &entry, QObject *parent);
    ~SeriesLoad() override;

    [[nodiscard]] LoadedSeries &series() const { return *m_series; }
    void start();
    /// What has been read stays; ended() follows.
    void cancel();

Q_SIGNALS:
    /// Volumes or further slices are there; told a few times a second at most.
    void changed();
    /// Nothing more will come: the series is complete, or its remark tells why not.
    void ended();

private:
    void prepared();
    void sliceLoaded();
    void sliceFailed(const QString &reason);
    void failed(const QString &reason);
    void finished(bool complete);
    void addRemark(const QString &remark);
    void end();

    McHandle<LoadedSeries> m_series;
    McHandle<Zel::DicomDirectoryEntry> m_entry;
    DicomVolumeLoader *m_loader;
    QTimer m_changeTimer;
    bool m_hasSlice = false;
    int m_failedSlices = 0;
};
