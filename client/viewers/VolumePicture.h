#pragma once

#include "client/viewers/VolumeScene.h"

#include <QImage>

#include <functional>
#include <memory>

/// Ray casting of volumes on the CPU, in a window that is never on the screen. Made, used and
/// destroyed in one thread, any; needs an X display (see DisplayProbe).
class VolumePicture
{
public:
    /// Asked while a picture is made: true to give it up.
    using Interrupted = std::function<bool()>;

    explicit VolumePicture(Interrupted interrupted);
    ~VolumePicture();
    VolumePicture(const VolumePicture &) = delete;
    VolumePicture &operator=(const VolumePicture &) = delete;

    /// Null when it was given up.
    [[nodiscard]] QImage draw(const VolumeScene &scene);

private:
    class Pipeline;

    std::unique_ptr<Pipeline> m_pipeline;
};
