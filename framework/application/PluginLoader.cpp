#include "framework/application/PluginLoader.h"

#include "framework/application/PluginInterface.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

namespace {

/// What stands before the series in the name of the interface.
QString family()
{
    const QString own = QStringLiteral(MOVARA_PLUGIN_IID);
    return own.left(own.indexOf(QLatin1Char('/')) + 1);
}

QString seriesOf(const QString &interface)
{
    return interface.mid(family().size());
}

QStringList &loadedFiles()
{
    static QStringList files;
    return files;
}

/// Loads a plug-in of this series for good. @return why not, or an empty text.
QString load(QPluginLoader &loader, const QString &interface)
{
    const QString own = QStringLiteral(MOVARA_PLUGIN_IID);
    if (interface != own) {
        return QCoreApplication::translate("PluginLoader",
            "It was made for version %1 of Movara, and this is version %2. Install the plug-in "
            "that belongs to version %2.")
            .arg(seriesOf(interface), seriesOf(own));
    }
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    return loader.load() ? QString()
                         : QCoreApplication::translate("PluginLoader", "It cannot be loaded: %1")
                               .arg(loader.errorString());
}

} // namespace

QList<PluginLoader::Problem> PluginLoader::loadFolder(const QString &folder)
{
    QList<Problem> problems;
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        const QString path = file.canonicalFilePath();
        if (!QLibrary::isLibrary(path) || loadedFiles().contains(path)) {
            continue;
        }
        QPluginLoader loader(path);
        const QString interface = loader.metaData().value(QLatin1String("IID")).toString();
        if (!interface.startsWith(family())) {
            continue;
        }
        const QString reason = load(loader, interface);
        if (reason.isEmpty()) {
            loadedFiles().append(path);
        } else {
            problems.append({path, reason});
        }
    }
    return problems;
}

const QStringList &PluginLoader::loaded()
{
    return loadedFiles();
}
