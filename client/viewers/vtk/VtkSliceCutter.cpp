#include "client/viewers/SliceCutter.h"
#include "client/viewers/vtk/VolumeImage.h"
#include "platform/util/McModule.h"

#include <vtkImageData.h>
#include <vtkImageReslice.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkSmartPointer.h>

#include <cmath>

namespace {

/// Rounding must not keep a plane along the grid from VTK's quick path for such planes.
double clean(double value)
{
    constexpr double tiny = 1e-9;
    return std::abs(value) < tiny ? 0 : value;
}

void setColumn(vtkMatrix4x4 &matrix, int column, const McVec3d &value)
{
    matrix.SetElement(0, column, clean(value.x));
    matrix.SetElement(1, column, clean(value.y));
    matrix.SetElement(2, column, clean(value.z));
}

class VtkSliceCutter final : public SliceCutter
{
public:
    VtkSliceCutter()
    {
        m_reslice->SetInterpolationModeToLinear();
        m_reslice->SetOutputOrigin(0, 0, 0);
        m_reslice->SetOutputSpacing(1, 1, 1);
        m_reslice->SetResliceAxes(m_axes);
    }

    void setVolume(KxVolume *volume, double outside) override
    {
        m_input = volume == nullptr ? nullptr : volumeImage(*volume, false);
        m_reslice->SetInputData(m_input);
        m_reslice->SetBackgroundColor(outside, outside, outside, outside);
    }

    void voxelsChanged() override
    {
        if (m_input) {
            m_input->Modified();
        }
    }

    const void *cut(const Plane &plane, const QSize &pixels) override
    {
        setColumn(*m_axes, 0, plane.right);
        setColumn(*m_axes, 1, plane.down);
        setColumn(*m_axes, 2, plane.normal);
        setColumn(*m_axes, 3, plane.first);
        m_axes->Modified();
        m_reslice->SetOutputExtent(0, pixels.width() - 1, 0, pixels.height() - 1, 0, 0);
        m_reslice->Update();
        return m_reslice->GetOutput()->GetScalarPointer();
    }

private:
    vtkSmartPointer<vtkImageData> m_input;
    vtkNew<vtkImageReslice> m_reslice;
    vtkNew<vtkMatrix4x4> m_axes;
};

} // namespace

MOVARA_MODULE(SliceCutter, VtkSliceCutter)
