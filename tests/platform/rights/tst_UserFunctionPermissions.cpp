#include "platform/rights/UserFunctionPermissions.h"
#include "tests/platform/properties/ProgramLog.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

using Zel::UserFunctionPermissions;

namespace {

/// What the rights say, as one line.
QString answers(const UserFunctionPermissions &rights)
{
    std::string renamed = "Old.Zoom";
    rights.renameTool(renamed);
    return QStringLiteral("tool %1 editor %2 native %3 %4")
        .arg(int(rights.haveToolPermission("View.Zoom", false)))
        .arg(int(rights.haveEditorPermission("View.Zoom", false)))
        .arg(int(rights.havePermission(Zel::FUNCTION_NATIVE_STYLE, false)))
        .arg(QString::fromStdString(renamed));
}

const QString allowed = QStringLiteral("tool 1 editor 1 native 0 Old.Zoom");
const QString denied = QStringLiteral("tool 0 editor 0 native 0 Old.Zoom");

} // namespace

class tst_UserFunctionPermissions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_log.take(); }
    void wholePolicy();
    void renamings();
    void denialsAreLoggedOnce();
    void notAPolicy_data();
    void notAPolicy();
    void whereThePolicyIs_data();
    void whereThePolicyIs();

private:
    QString write(const char *name, const QByteArray &content)
    {
        QFile file(m_folder.filePath(QString::fromUtf8(name)));
        const bool written
            = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
        return written ? file.fileName() : QString();
    }

    ProgramLog m_log;
    QTemporaryDir m_folder;
};

void tst_UserFunctionPermissions::wholePolicy()
{
    UserFunctionPermissions rights(write("policy.json",
        R"({"comment": "of the site", "deniedTools": ["Measure.*", "View.Edit?"], "deniedEditors": ["Admin[!0-9]"],
            "grantedFunctions": [140, -3], "renamedTools": {"Old.Zoom": "View.Zoom"}})"));
    const auto names = [](const char *list) { return QByteArray(list).split(' '); };
    QByteArrayList tools;
    QByteArrayList editors;
    for (const QByteArray &key :
        names("Measure.Angle Measure View.Edit View.Edit2 view.edit2 Admin1 AdminX")) {
        tools += rights.haveToolPermission(key.toStdString(), false) ? key : QByteArray();
        editors += rights.haveEditorPermission(key.toStdString(), false) ? key : QByteArray();
    }
    tools.removeAll(QByteArray());
    editors.removeAll(QByteArray());
    QCOMPARE(tools.join(' '), QByteArray("Measure View.Edit view.edit2 Admin1 AdminX"));
    QCOMPARE(editors.join(' '),
        QByteArray("Measure.Angle Measure View.Edit View.Edit2 view.edit2 Admin1"));
    QVERIFY(rights.havePermission(140, false) && rights.havePermission(-3, false));
    QVERIFY(!rights.havePermission(141, false));

    rights.load(QString());
    QCOMPARE(answers(rights), allowed);
    QCOMPARE(m_log.take(), QStringList());
}

void tst_UserFunctionPermissions::renamings()
{
    const UserFunctionPermissions rights(write("policy.json",
        R"({"renamedTools": {"A": "B", "B": "C", "X": "A", "Gr\u00f6\u00dfe": "Size"}})"));
    QStringList now;
    for (const char *const key : {"A", "B", "C", "X", "a", "",
             "Gr\xC3\xB6\xC3\x9F"
             "e"}) {
        std::string name = key;
        rights.renameTool(name);
        now.append(QString::fromStdString(name));
    }
    QCOMPARE(now.join(QLatin1Char(',')), QStringLiteral("C,C,C,C,a,,Size"));
}

void tst_UserFunctionPermissions::denialsAreLoggedOnce()
{
    const UserFunctionPermissions rights(
        write("policy.json", R"({"deniedTools": ["*"], "deniedEditors": ["*"]})"));
    for (int i = 0; i < 2; ++i) {
        for (const bool logDenial : {false, true}) {
            QVERIFY(!rights.haveToolPermission("Zoom", logDenial));
            QVERIFY(!rights.haveEditorPermission("Zoom", logDenial));
            QVERIFY(!rights.havePermission(7, logDenial));
        }
        QVERIFY(!rights.haveToolPermission("Silent", false));
    }
    QCOMPARE(m_log.take().join(QLatin1Char('|')),
        QStringLiteral("I The user has no right to use the tool Zoom|I The user has no right to "
                       "use the editor Zoom|"
                       "I The user has no right to use the function 7"));
}

void tst_UserFunctionPermissions::notAPolicy_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char *name, const char *content, const char *problem) {
        QTest::newRow(name) << QByteArray(content) << QString::fromUtf8(problem);
    };
    row("empty", "", "illegal value");
    row("cut off", R"({"grantedFunctions": [140], "deniedTools": ["A",)", "unterminated array");
    row("a list", R"(["A"])", "it is not an object");
    row("misspelt member", R"({"grantedFunctions": [140], "deniedTool": ["A"]})",
        "\"deniedTool\" is not known");
    row("tools as text", R"({"deniedTools": "A"})", "\"deniedTools\" is not a list");
    row("tool as number", R"({"deniedTools": ["A", 1]})",
        "\"deniedTools\" holds something that is not a pattern");
    row("no pattern", R"({"deniedEditors": ["[z-a]"]})",
        "\"deniedEditors\" holds something that is not a pattern");
    row("functions as text", R"({"grantedFunctions": "140"})",
        "\"grantedFunctions\" is not a list");
    row("fraction", R"({"grantedFunctions": [140, 1.5]})",
        "\"grantedFunctions\" holds something that is not a function code");
    row("function as text", R"({"grantedFunctions": [140, "141"]})",
        "\"grantedFunctions\" holds something that is not a function code");
    row("renaming list", R"({"renamedTools": ["Old.Zoom"]})", "\"renamedTools\" is not an object");
    row("renamed to nothing", R"({"renamedTools": {"Old.Zoom": ""}})",
        "\"renamedTools\" holds a new identifier that is not a text");
    row("circle", R"({"renamedTools": {"Old.Zoom": "A", "A": "B", "B": "A"}})",
        "\"renamedTools\" renames in a circle");
}

void tst_UserFunctionPermissions::notAPolicy()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, problem);
    const QString name = write("policy.json", content);
    const UserFunctionPermissions rights(name);
    QCOMPARE(answers(rights), denied);
    QCOMPARE(m_log.take(),
        QStringList{QStringLiteral(
            "W WARNING - the policy %1 cannot be used, every tool and editor is denied: %2")
                        .arg(name, problem)});
}

void tst_UserFunctionPermissions::whereThePolicyIs_data()
{
    QTest::addColumn<QString>("policyVariable");
    QTest::addColumn<QByteArray>("site");
    QTest::addColumn<QString>("expected");
    const QString fromVariable = QStringLiteral("tool 1 editor 1 native 1 Old.Zoom");
    const QString fromSite = QStringLiteral("tool 1 editor 1 native 0 fromSite");
    QTest::newRow("nowhere") << QString() << QByteArray("UI.A=1\n") << allowed;
    QTest::newRow("variable") << QStringLiteral("variable.json") << QByteArray("UI.A=1\n")
                              << fromVariable;
    QTest::newRow("site") << QString() << QByteArray("Rights.PolicyFile=site.json\n") << fromSite;
    QTest::newRow("both") << QStringLiteral("variable.json")
                          << QByteArray("Rights.PolicyFile=site.json\n") << fromVariable;
    QTest::newRow("variable, absent") << QStringLiteral("absent.json") << QByteArray() << denied;
    QTest::newRow("variable, a folder") << QStringLiteral(".") << QByteArray() << denied;
    QTest::newRow("site, absent") << QString() << QByteArray("Rights.PolicyFile=absent.json\n")
                                  << denied;
    QTest::newRow("damaged site file") << QString() << QByteArray("{}\n") << denied;
}

void tst_UserFunctionPermissions::whereThePolicyIs()
{
    QFETCH(const QString, policyVariable);
    QFETCH(const QByteArray, site);
    QFETCH(const QString, expected);
    write("variable.json", R"({"grantedFunctions": [140]})");
    write("site.json", R"({"renamedTools": {"Old.Zoom": "fromSite"}})");

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("MOVARA_SITE_SETTINGS"), write("site.ini", site));
    if (!policyVariable.isEmpty()) {
        environment.insert(QStringLiteral("MOVARA_POLICY_FILE"), m_folder.filePath(policyVariable));
    }
    QProcess client;
    client.setProcessEnvironment(environment);
    client.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--answers")});
    QVERIFY(client.waitForFinished());
    QCOMPARE(QString::fromUtf8(client.readAllStandardOutput()), expected);
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(QLatin1String("--answers"))) {
        std::fputs(qUtf8Printable(answers(UserFunctionPermissions::instance())), stdout);
        return 0;
    }
    tst_UserFunctionPermissions test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_UserFunctionPermissions.moc"
