#include "client/sample/SampleStudy.h"

#include "platform/util/McProgressInterface.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace {

/// Tells on the standard error stream which series is being written.
class ConsoleProgress final : public McProgressInterface
{
public:
    void setProgressInfo(const char *text) override { std::fprintf(stderr, "%s\n", text); }
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("movara-sample-study"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MOVARA_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes the sample study of Movara: two made-up patients, as DICOM files."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("FOLDER"),
        QStringLiteral("Folder to write to; it is made if it is not there."));
    parser.process(application);

    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        std::fputs("movara-sample-study: name one folder to write to; see --help.\n", stderr);
        return 2;
    }
    ConsoleProgress progress;
    const std::string error
        = SampleStudy::write(McFilename(arguments.first().toStdString()), &progress);
    if (!error.empty()) {
        std::fprintf(stderr, "movara-sample-study: %s\n", error.c_str());
        return 1;
    }
    std::printf(
        "%d files written to %s\n", SampleStudy::numFiles(), qUtf8Printable(arguments.first()));
    return 0;
}
