#pragma once

/// Which plane a slice viewer shows. Original is the plane in which the images were acquired;
/// Oblique is any plane that the user has turned to.
enum class PlaneKind { Axial, Sagittal, Coronal, Original, Oblique };
