#include "client/viewers/VolumePicture.h"

#include "client/viewers/vtk/VolumeImage.h"
#include "platform/util/McModule.h"

#include <vtkCallbackCommand.h>
#include <vtkCamera.h>
#include <vtkColorTransferFunction.h>
#include <vtkFixedPointVolumeRayCastMapper.h>
#include <vtkImageData.h>
#include <vtkImageShrink3D.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkPiecewiseFunction.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkUnsignedCharArray.h>
#include <vtkVolume.h>
#include <vtkVolumeProperty.h>

#include <algorithm>
#include <array>
#include <thread>

namespace {

/// Larger volumes are thinned out: the picture has no more detail than a screen shows.
constexpr double mostVoxels = 40e6;
/// Rays of a quick picture are so many pixels apart.
constexpr float quickRayDistance = 3;
constexpr double quickStep = 2;
constexpr double finalStep = 0.8;
/// Shading needs the direction of the surface, which VTK looks for up to three voxels away on both
/// sides, also past the ends of volumes that are thinner.
constexpr int leastShadedVoxels = 6;

struct ColorPoint
{
    double fraction; ///< of the window
    std::array<double, 3> color;
    double opacity;
};

/// From the edge of what is seen to the densest: warm and faint, then ivory.
constexpr std::array<ColorPoint, 5> colorRamp{{
    {0.0, {0.42, 0.16, 0.12}, 0.0},
    {0.2, {0.72, 0.38, 0.26}, 0.08},
    {0.45, {0.90, 0.68, 0.48}, 0.3},
    {0.7, {0.97, 0.90, 0.78}, 0.65},
    {1.0, {1.0, 0.98, 0.95}, 0.9},
}};

/// The grid's directions and place, without its spacing, which the image has itself.
void setGridMatrix(vtkMatrix4x4 &matrix, const KxVolume &volume)
{
    const McTransform3d &transform = volume.voxelToPatient();
    const std::array<McVec3d, 4> columns{transform.xAxis().normalized(),
        transform.yAxis().normalized(), transform.zAxis().normalized(), transform.origin()};
    for (int column = 0; column < 4; ++column) {
        const McVec3d &vector = columns[static_cast<std::size_t>(column)];
        matrix.SetElement(0, column, vector.x);
        matrix.SetElement(1, column, vector.y);
        matrix.SetElement(2, column, vector.z);
    }
}

double numVoxels(const KxVolume &volume)
{
    const auto &size = volume.dimensions();
    return 1.0 * size[0] * size[1] * size[2];
}

/// One processor stays free for the user interface.
int numThreads()
{
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()) - 1);
}

/// VTK's rows go upwards.
QImage toImage(vtkUnsignedCharArray &pixels, const QSize &size)
{
    const QImage view(pixels.GetPointer(0), size.width(), size.height(),
        qsizetype(4) * size.width(), QImage::Format_RGBX8888);
    return view.mirrored().convertToFormat(QImage::Format_RGB32);
}

class VtkVolumePicture final : public VolumePicture
{
public:
    VtkVolumePicture()
    {
        m_window->SetOffScreenRendering(1);
        m_window->SetMultiSamples(0);
        m_window->AddRenderer(m_renderer);
        m_renderer->SetBackground(0, 0, 0);
        m_renderer->GetActiveCamera()->ParallelProjectionOn();
        m_mapper->SetNumberOfThreads(numThreads());
        m_mapper->SetAutoAdjustSampleDistances(0);
        m_mapper->SetLockSampleDistanceToInputSpacing(0);
        m_volume->SetMapper(m_mapper);
        m_volume->SetProperty(m_property);
        m_volume->SetUserMatrix(m_matrix);
        m_property->SetColor(m_colors);
        m_property->SetScalarOpacity(m_opacities);
        m_property->SetInterpolationTypeToLinear();
        m_property->SetAmbient(0.25);
        m_property->SetDiffuse(0.8);
        m_property->SetSpecular(0.15);
        m_renderer->AddVolume(m_volume);
        m_check->SetClientData(this);
        m_check->SetCallback(&VtkVolumePicture::checkAbort);
        m_window->AddObserver(vtkCommand::AbortCheckEvent, m_check);
    }

    QImage draw(const VolumeScene &scene, const Interrupted &interrupted) override
    {
        m_interrupted = &interrupted;
        setVolume(scene.volume);
        setWindow(scene.window);
        setQuality(*scene.volume, scene.isQuick);
        m_window->SetSize(scene.pixels.width(), scene.pixels.height());
        setCamera(scene);
        m_window->Render();
        m_interrupted = nullptr;
        if (interrupted()) {
            return {};
        }
        constexpr int backBuffer = 0;
        vtkNew<vtkUnsignedCharArray> pixels;
        m_window->GetRGBACharPixelData(
            0, 0, scene.pixels.width() - 1, scene.pixels.height() - 1, backBuffer, pixels);
        return toImage(*pixels, scene.pixels);
    }

private:
    void setVolume(const McHandle<KxVolume> &newVolume)
    {
        if (newVolume.get() == m_shown.get()) {
            return;
        }
        m_shown = newVolume;
        const auto image = volumeImage(*newVolume, true);
        if (numVoxels(*newVolume) > mostVoxels) {
            m_shrink->SetInputData(image);
            m_shrink->SetShrinkFactors(2, 2, newVolume->dimensions()[2] > 256 ? 2 : 1);
            m_shrink->AveragingOn();
            m_mapper->SetInputConnection(m_shrink->GetOutputPort());
        } else {
            m_mapper->SetInputData(image);
        }
        const auto &size = newVolume->dimensions();
        m_property->SetShade(*std::min_element(size.begin(), size.end()) >= leastShadedVoxels);
        setGridMatrix(*m_matrix, *newVolume);
    }

    void setWindow(const KxVolume::Window &values)
    {
        m_colors->RemoveAllPoints();
        m_opacities->RemoveAllPoints();
        for (const ColorPoint &point : colorRamp) {
            const double value = values.center + (point.fraction - 0.5) * values.width;
            m_colors->AddRGBPoint(value, point.color[0], point.color[1], point.color[2]);
            m_opacities->AddPoint(value, point.opacity);
        }
    }

    void setCamera(const VolumeScene &scene)
    {
        const McVec3d center = scene.volume->center();
        constexpr double distance = 5000; // Outside of any patient; a parallel projection.
        const McVec3d eye = center - scene.viewDirection * distance;
        vtkCamera &camera = *m_renderer->GetActiveCamera();
        camera.SetFocalPoint(center.x, center.y, center.z);
        camera.SetPosition(eye.x, eye.y, eye.z);
        camera.SetViewUp(scene.up.x, scene.up.y, scene.up.z);
        camera.SetParallelScale(scene.mmPerPixel * scene.pixels.height() / 2);
        m_renderer->ResetCameraClippingRange();
    }

    void setQuality(const KxVolume &shown, bool isQuick)
    {
        const auto spacing = shown.spacing();
        const double finest = *std::min_element(spacing.begin(), spacing.end());
        m_mapper->SetImageSampleDistance(isQuick ? quickRayDistance : 1);
        m_mapper->SetSampleDistance(static_cast<float>(finest * (isQuick ? quickStep : finalStep)));
    }

    static void checkAbort(vtkObject *, unsigned long, void *self, void *)
    {
        auto &picture = *static_cast<VtkVolumePicture *>(self);
        if (picture.m_interrupted != nullptr && (*picture.m_interrupted)()) {
            picture.m_window->SetAbortRender(1);
        }
    }

    const Interrupted *m_interrupted = nullptr; ///< While a picture is made.
    McHandle<KxVolume> m_shown; ///< Keeps the voxels that VTK looks at.
    vtkNew<vtkRenderWindow> m_window;
    vtkNew<vtkRenderer> m_renderer;
    vtkNew<vtkFixedPointVolumeRayCastMapper> m_mapper;
    vtkNew<vtkImageShrink3D> m_shrink;
    vtkNew<vtkVolume> m_volume;
    vtkNew<vtkVolumeProperty> m_property;
    vtkNew<vtkColorTransferFunction> m_colors;
    vtkNew<vtkPiecewiseFunction> m_opacities;
    vtkNew<vtkMatrix4x4> m_matrix;
    vtkNew<vtkCallbackCommand> m_check;
};

} // namespace

MOVARA_MODULE(VolumePicture, VtkVolumePicture)
