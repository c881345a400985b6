#pragma once

#include "platform/toolkit/QxStyleFactory.h"

#include <QPalette>

#include <array>

/// Colours of a style by role.
using QxColorScheme = std::array<QColor, QxStyleFactory::numberOfColorRoles>;

inline const QColor &colorOf(const QxColorScheme &scheme, QxStyleFactory::ColorRole role)
{
    return scheme[static_cast<std::size_t>(role)];
}

/// What a role is called, in a style sheet or by those who ask for a colour.
struct QxNamedColorRole
{
    const char *name;
    QxStyleFactory::ColorRole role;
};

/// The palette made of a scheme.
QPalette paletteOf(const QxColorScheme &scheme);
/// The application's style sheet made of a scheme.
QString styleSheetOf(const QxColorScheme &scheme);
/// The scheme that comes closest to a palette of the desktop; @p dark and @p light supply what a
/// palette does not have.
QxColorScheme schemeOf(
    const QPalette &palette, const QxColorScheme &dark, const QxColorScheme &light);
/// @p text, moved towards white or black as far as needed for a contrast of 4.5 to 1 on @p ground.
QColor readableOn(const QColor &text, const QColor &ground);
