#include "client/app/CommandLine.h"

#include "client/application/Translations.h"
#include "client/layout/LayoutTable.h"
#include "framework/application/BuildVersion.h"

#include <QCommandLineParser>
#include <QRegularExpression>

namespace {

constexpr int usageError = 2;
constexpr int smallestSide = 200;
constexpr int largestSide = 16384;

const QStringList benchmarks{QStringLiteral("scroll"), QStringLiteral("start")};

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Shows DICOM studies in linked 2D and 3D viewers. Without a folder a sample "
                       "study is made and opened."));
    parser.addPositionalArgument(QStringLiteral("folder"),
        QStringLiteral("DICOM folders, files or DICOMDIR files."), QStringLiteral("[folder...]"));
    parser.addOptions({
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help.")},
        {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Shows the version.")},
        {QStringLiteral("layout"),
            QStringLiteral("Starts with this layout: %1.")
                .arg(LayoutTable::names().join(QStringLiteral(", "))),
            QStringLiteral("name"), QStringLiteral("2x2")},
        {QStringLiteral("language"),
            QStringLiteral("Shows all texts in this language: %1.")
                .arg(Translations::languages().join(QStringLiteral(" or "))),
            QStringLiteral("code")},
        {QStringLiteral("size"),
            QStringLiteral("Size of the window with the viewers, e.g. 1600x1000."),
            QStringLiteral("WxH")},
        {QStringLiteral("session"), QStringLiteral("Opens a saved session."),
            QStringLiteral("file")},
        {QStringLiteral("screenshot"),
            QStringLiteral("Writes a picture of the window with the viewers, once everything is "
                           "loaded, and ends. Further windows go to FILE-2 and so on."),
            QStringLiteral("file")},
        {QStringLiteral("benchmark"),
            QStringLiteral("Measures and ends. Known: scroll (time from a wheel step to the "
                           "finished paint of all linked viewers; of the opened folders, "
                           "without any of made-up voxels), start (time from the start of the "
                           "process to the first painted window, and memory when idle; opens "
                           "nothing)."),
            QStringLiteral("name")},
    });
}

std::optional<QSize> toSize(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const bool isSane = match.hasMatch() && qMin(size.width(), size.height()) >= smallestSide
        && qMax(size.width(), size.height()) <= largestSide;
    return isSane ? std::optional(size) : std::nullopt;
}

CommandLine::End mistake(const QString &text)
{
    return {text, usageError};
}

} // namespace

std::optional<CommandLine::End> CommandLine::parse(
    const QStringList &arguments, CommandLine &command)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments)) {
        return mistake(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        // Without an application object the parser does not know the program's name.
        return End{parser.helpText().replace(
                       QLatin1String("<executable_name>"), QLatin1String("movara-workstation")),
            0};
    }
    if (parser.isSet(QStringLiteral("version"))) {
        return End{
            QStringLiteral("movara-workstation %1").arg(QString::fromUtf8(movaraBuildVersionTag())),
            0};
    }
    command.paths = parser.positionalArguments();
    command.layout = parser.value(QStringLiteral("layout"));
    command.language = parser.value(QStringLiteral("language"));
    command.session = parser.value(QStringLiteral("session"));
    command.screenshot = parser.value(QStringLiteral("screenshot"));
    command.benchmark = parser.value(QStringLiteral("benchmark"));
    const QStringList languages = Translations::languages();
    if (!command.language.isEmpty() && !languages.contains(command.language)) {
        return mistake(QStringLiteral("There is no language \"%1\". Known languages: %2.")
                           .arg(command.language, languages.join(QStringLiteral(", "))));
    }
    if (LayoutTable::find(command.layout) == nullptr) {
        return mistake(QStringLiteral("There is no layout \"%1\". Known layouts: %2.")
                           .arg(command.layout, LayoutTable::names().join(QStringLiteral(", "))));
    }
    if (parser.isSet(QStringLiteral("benchmark")) && !benchmarks.contains(command.benchmark)) {
        return mistake(QStringLiteral("There is no benchmark \"%1\". Known benchmarks: %2.")
                           .arg(command.benchmark, benchmarks.join(QStringLiteral(", "))));
    }
    if (!command.session.isEmpty() && !command.paths.isEmpty()) {
        return mistake(QStringLiteral("A session brings its own folders: give it or folders."));
    }
    if (parser.isSet(QStringLiteral("size"))) {
        const std::optional<QSize> size = toSize(parser.value(QStringLiteral("size")));
        if (!size) {
            return mistake(QStringLiteral("\"%1\" is no size of a window. Give width and height in "
                                          "pixels, each at least %2, like 1600x1000.")
                               .arg(parser.value(QStringLiteral("size")))
                               .arg(smallestSide));
        }
        command.size = *size;
    }
    return std::nullopt;
}
