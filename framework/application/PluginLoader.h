#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QList>
#include <QString>
#include <QStringList>

/// Plug-ins: shared libraries that register tools, editors, contents and settings from static
/// initializers, see PluginInterface.h. They stay loaded until the process ends, since the
/// registries keep their functions. To be loaded before the host runs the start-up callbacks. GUI
/// thread only.
class MOVARA_FRAMEWORK_EXPORT PluginLoader
{
public:
    /// A library that was not loaded.
    struct Problem
    {
        QString file; ///< absolute path
        QString reason; ///< for the user, and what to do about it
    };

    PluginLoader() = delete;

    /// Loads every plug-in of a folder, in the order of their file names; each is loaded once,
    /// however often it is asked for. Those of another series of versions are refused without any
    /// of their code being run. A folder that is not there has none; libraries that are no plug-ins
    /// are left alone.
    static QList<Problem> loadFolder(const QString &folder);
    /// Absolute paths of the plug-ins that have been loaded, in that order.
    [[nodiscard]] static const QStringList &loaded();
};
