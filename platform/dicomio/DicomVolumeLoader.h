#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/dicomio/MovaraDicomIoExport.h"
#include "platform/render/KxImageSeries.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

#include <QObject>
#include <QString>

#include <memory>
#include <string>

/// Loads the volumes of a series in a thread of its own, so that they can be shown while they come
/// in. Lives in one thread (with an event loop); all signals come there, and only there are voxels
/// written, right before the signal that tells so.
class MOVARA_DICOMIO_EXPORT DicomVolumeLoader : public QObject
{
    Q_OBJECT

public:
    explicit DicomVolumeLoader(QObject *parent = nullptr);
    /// Cancels and waits for the thread.
    ~DicomVolumeLoader() override;
    Q_DISABLE_COPY_MOVE(DicomVolumeLoader)

    /// Starts loading a stored volume, or the largest one of a series. What was being loaded before
    /// is cancelled and reports nothing any more.
    void start(const McHandle<Zel::DicomDirectoryEntry> &entry);
    /// Ends loading; finished(false) follows. What was loaded stays.
    void cancel();
    [[nodiscard]] bool isRunning() const;
    /// The volumes; null until prepared().
    [[nodiscard]] const McHandle<KxImageSeries> &series() const;
    /// What people should know about the volumes; there once prepared() came.
    [[nodiscard]] const McDArray<std::string> &remarks() const;

Q_SIGNALS:
    /// series() is there: where it lies and what it is are final, its voxels are still background.
    void prepared();
    /// A slice's voxels are in the volume.
    void sliceLoaded(int phase, int z);
    /// The volume's default window is known only now, by its values.
    void windowEstimated(int phase);
    /// A slice could not be read; its voxels have the lowest value of the volume.
    void sliceFailed(int phase, int z, const QString &reason);
    void progressChanged(int done, int total);
    /// Nothing can be loaded, or nothing more; the last signal of this load.
    void failed(const QString &reason);
    /// The last signal of this load. @param complete false when it was cancelled.
    void finished(bool complete);

private:
    class Private;
    std::unique_ptr<Private> d;
};
