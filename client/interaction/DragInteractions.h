#pragma once

#include "client/interaction/DragInteraction.h"

/// Left button: to the right widens the window, downwards raises its level; in 3D, with Shift, the
/// values that are seen.
class WindowInteraction final : public DragInteraction
{
public:
    explicit WindowInteraction(Qt::KeyboardModifiers modifiers);

protected:
    bool drag(const ExEvent &event, const QPoint &moved) override;

private:
    bool dragVolume(VolumeViewer &viewer, const QPoint &moved) const;

    bool m_isForVolumes;
};

/// Right button: upwards enlarges.
class ZoomInteraction final : public DragInteraction
{
public:
    ZoomInteraction();

protected:
    bool drag(const ExEvent &event, const QPoint &moved) override;
};

/// Middle button, or left with Shift: the picture follows the pointer.
class PanInteraction final : public DragInteraction
{
public:
    PanInteraction(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);

protected:
    bool drag(const ExEvent &event, const QPoint &moved) override;
};

/// Left button in 3D: turns the volume.
class RotateInteraction final : public DragInteraction
{
public:
    RotateInteraction();

protected:
    bool drag(const ExEvent &event, const QPoint &moved) override;
};

/// Left button with Ctrl: turns the plane of a slice viewer, to the right about its vertical and
/// downwards about its horizontal axis.
class ObliqueInteraction final : public DragInteraction
{
public:
    ObliqueInteraction();

protected:
    bool drag(const ExEvent &event, const QPoint &moved) override;
};
