#include "client/app/Plugins.h"

#include "framework/application/ExApplication.h"
#include "framework/application/PluginLoader.h"
#include "platform/util/McLogFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>

namespace {

QStringList folders()
{
    const QDir program(QCoreApplication::applicationDirPath());
    return QStringList(program.filePath(QStringLiteral(MOVARA_PLUGIN_FOLDER)))
        + qEnvironmentVariable("MOVARA_PLUGINS").split(QDir::listSeparator(), Qt::SkipEmptyParts);
}

} // namespace

QStringList Plugins::load()
{
    QStringList refused;
    for (const QString &folder : folders()) {
        for (const PluginLoader::Problem &problem : PluginLoader::loadFolder(folder)) {
            refused
                += QDir::toNativeSeparators(problem.file) % QLatin1String(": ") % problem.reason;
            McLogFile::warnf("Plug-in not loaded: %s", qUtf8Printable(refused.last()));
        }
    }
    return refused;
}

void Plugins::tell(const QStringList &refused)
{
    if (refused.isEmpty()) {
        return;
    }
    auto *const box = new QMessageBox(QMessageBox::Warning, QCoreApplication::applicationName(),
        QCoreApplication::translate("Plugins", "Some plug-ins were not loaded:")
            % QLatin1String("\n\n") % refused.join(QLatin1String("\n\n")),
        QMessageBox::Ok, ExApplication::instance().dialogParent());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}
