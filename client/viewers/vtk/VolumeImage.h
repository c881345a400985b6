#pragma once

#include <vtkSmartPointer.h>

class KxVolume;
class vtkImageData;

/// VTK's view of a volume's voxels: no copy, the volume must outlive it. The grid starts at 0.
/// @param spacing whether the grid has the volume's spacing, or steps of 1.
vtkSmartPointer<vtkImageData> volumeImage(KxVolume &volume, bool spacing);
