#include "client/viewers/vtk/VolumeImage.h"

#include "platform/render/KxVolume.h"

#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkPointData.h>
#include <vtkShortArray.h>
#include <vtkUnsignedCharArray.h>

namespace {

template <typename Array>
vtkSmartPointer<vtkDataArray> wrapped(KxVolume &volume, vtkIdType count)
{
    const auto array = vtkSmartPointer<Array>::New();
    array->SetNumberOfComponents(volume.components());
    constexpr int keepMemory = 1;
    array->SetArray(
        reinterpret_cast<typename Array::ValueType *>(volume.slice(0)), count, keepMemory);
    return array;
}

vtkSmartPointer<vtkDataArray> voxels(KxVolume &volume)
{
    vtkIdType count = volume.components();
    for (const int size : volume.dimensions()) {
        count *= size;
    }
    switch (volume.scalarType()) {
    case KxVolume::ScalarType::UInt8:
        return wrapped<vtkUnsignedCharArray>(volume, count);
    case KxVolume::ScalarType::Int16:
        return wrapped<vtkShortArray>(volume, count);
    case KxVolume::ScalarType::Float32:
        break;
    }
    return wrapped<vtkFloatArray>(volume, count);
}

} // namespace

vtkSmartPointer<vtkImageData> volumeImage(KxVolume &volume, bool spacing)
{
    auto image = vtkSmartPointer<vtkImageData>::New();
    image->SetDimensions(volume.dimensions().data());
    if (spacing) {
        image->SetSpacing(volume.spacing().data());
    }
    image->GetPointData()->SetScalars(voxels(volume));
    return image;
}
