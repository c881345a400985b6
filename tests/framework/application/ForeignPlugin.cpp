#include <QObject>

namespace {

const bool hasRun = qputenv("FOREIGN_PLUGIN_HAS_RUN", "1");

} // namespace

/// A plug-in of a series of versions that is not this one.
class ForeignPlugin final : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "movara.plugin/9.7")
};

#include "ForeignPlugin.moc"
