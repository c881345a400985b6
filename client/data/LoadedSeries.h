#pragma once

#include "client/data/SeriesInfo.h"
#include "platform/render/KxImageSeries.h"
#include "platform/util/McHandableThreaded.h"
#include "platform/util/McHandle.h"

#include <QString>

#include <string>

/// A series in the workstation: its volumes, what is told of it, and how far it has been read. Held
/// by McHandle from the viewers that show it and from the study session. GUI thread only, but for
/// the reference count; once complete its voxels do not change any more.
class LoadedSeries : public virtual McHandableThreaded
{
public:
    /// @param uid the series instance UID.
    LoadedSeries(std::string uid, SeriesInfo info);

    [[nodiscard]] const std::string &uid() const { return m_uid; }
    [[nodiscard]] const SeriesInfo &info() const { return m_info; }

    /// The volumes; null until their grid is known.
    [[nodiscard]] KxImageSeries *images() const { return m_images; }
    void setImages(const McHandle<KxImageSeries> &images) { m_images = images; }

    /// How much of the slices has been read, 0 to 1.
    [[nodiscard]] double progress() const { return m_progress; }
    void setProgress(double progress) { m_progress = progress; }
    /// Reading has ended, with all slices or, after an error or on the user's wish, with some.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    void setComplete() { m_isComplete = true; }
    /// What the user should know, in lines: what is odd about the images, that reading was
    /// cancelled, that some slices could not be read.
    [[nodiscard]] const QString &remark() const { return m_remark; }
    void setRemark(const QString &remark) { m_remark = remark; }

    /// What is known of where the images lie; of a series without volumes nothing.
    [[nodiscard]] KxVolume::Placement placement() const;
    /// Whether positions in the two series can be compared.
    [[nodiscard]] bool sharesFrame(const LoadedSeries &other) const;

protected:
    ~LoadedSeries() override;

private:
    std::string m_uid;
    SeriesInfo m_info;
    McHandle<KxImageSeries> m_images;
    double m_progress = 0;
    bool m_isComplete = false;
    QString m_remark;
};
