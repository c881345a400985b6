// What docs/write-a-plugin.md shows.
#include "framework/application/PluginLoader.h"

/// Loads all plug-ins of a folder; to be called before the application object is made.
QStringList loadPlugins(const QString &folder)
{
    QStringList refused;
    for (const PluginLoader::Problem &problem : PluginLoader::loadFolder(folder)) {
        refused += problem.file + QStringLiteral(": ") + problem.reason;
    }
    return refused;
}
