#include "platform/rights/UserFunctionPermissions.h"
#include "tests/platform/properties/ProgramLog.h"
#include "tests/support/Files.h"
#include "tests/support/Rows.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

using namespace Qt::StringLiterals;
using Zel::UserFunctionPermissions;

namespace {

/// What the rights say, as one line.
QString answers(const UserFunctionPermissions &rights)
{
    std::string renamed = "Old.Zoom";
    rights.renameTool(renamed);
    return u"tool %1 editor %2 native %3 %4"_s
        .arg(int(rights.haveToolPermission("View.Zoom", false)))
        .arg(int(rights.haveEditorPermission("View.Zoom", false)))
        .arg(int(rights.havePermission(Zel::FUNCTION_NATIVE_STYLE, false)))
        .arg(QString::fromStdString(renamed));
}

const QString allowed = u"tool 1 editor 1 native 0 Old.Zoom"_s;
const QString denied = u"tool 0 editor 0 native 0 Old.Zoom"_s;

} // namespace

class tst_UserFunctionPermissions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_log.take(); }

    void wholePolicy()
    {
        UserFunctionPermissions rights(write("policy.json",
            R"({"comment": "of the site", "deniedTools": ["Measure.*"], "deniedEditors": ["Admin?"],
            "grantedFunctions": [140, -3], "renamedTools": {"Old.Zoom": "View.Zoom"}})"));
        QVERIFY(!rights.haveToolPermission("Measure.Angle", false));
        QVERIFY(rights.haveEditorPermission("Measure.Angle", false));
        QVERIFY(rights.haveToolPermission("AdminX", false));
        QVERIFY(!rights.haveEditorPermission("AdminX", false));
        QVERIFY(rights.havePermission(140, false) && rights.havePermission(-3, false));
        QVERIFY(!rights.havePermission(141, false));

        rights.load(QString());
        QCOMPARE(answers(rights), allowed);
        QCOMPARE(m_log.take(), QStringList());
    }

    void renamings()
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
        QCOMPARE(now.join(u','), u"C,C,C,C,a,,Size"_s);
    }

    void denialsAreLoggedOnce()
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
        QCOMPARE(m_log.take().join(u'|'),
            u"I The user has no right to use the tool Zoom|I The user has no right to "
            "use the editor Zoom|"
            "I The user has no right to use the function 7"_s);
    }

    void notAPolicy_data()
    {
        const Rows<QString, QString> row("content", "problem");
        row("empty", "", "illegal value");
        row("cut off", R"({"grantedFunctions": [140], "deniedTools": ["A",)", "unterminated array");
        row("a list", R"(["A"])", "it is not an object");
        row("misspelt", R"({"deniedTool": ["A"]})", R"("deniedTool" is not known)");
        row("tools as text", R"({"deniedTools": "A"})", R"("deniedTools" is not a list)");
        const char *const pattern = R"("deniedTools" holds something that is not a pattern)";
        row("tool as number", R"({"deniedTools": ["A", 1]})", pattern);
        row("no pattern", R"({"deniedTools": ["[z-a]"]})", pattern);
        const char *const code
            = R"("grantedFunctions" holds something that is not a function code)";
        row("fraction", R"({"grantedFunctions": [140, 1.5]})", code);
        row("function as text", R"({"grantedFunctions": [140, "141"]})", code);
        row("renaming list", R"({"renamedTools": ["A"]})", R"("renamedTools" is not an object)");
        row("renamed to nothing", R"({"renamedTools": {"Old.Zoom": ""}})",
            R"("renamedTools" holds a new identifier that is not a text)");
        row("circle", R"({"renamedTools": {"Old.Zoom": "A", "A": "B", "B": "A"}})",
            R"("renamedTools" renames in a circle)");
    }

    void notAPolicy()
    {
        QFETCH(const QString, content);
        QFETCH(const QString, problem);
        const QString name = write("policy.json", content.toUtf8());
        const UserFunctionPermissions rights(name);
        QCOMPARE(answers(rights), denied);
        QCOMPARE(m_log.take(),
            QStringList{
                u"W WARNING - the policy %1 cannot be used, every tool and editor is denied: %2"_s
                    .arg(name, problem)});
    }

    void whereThePolicyIs_data()
    {
        const Rows<QString, QString, QString> row("policyVariable", "site", "expected");
        const QString fromVariable = u"tool 1 editor 1 native 1 Old.Zoom"_s;
        const QString fromSite = u"tool 1 editor 1 native 0 fromSite"_s;
        row("nowhere", "", "UI.A=1\n", allowed);
        row("variable", "variable.json", "UI.A=1\n", fromVariable);
        row("site", "", "Rights.PolicyFile=site.json\n", fromSite);
        row("both", "variable.json", "Rights.PolicyFile=site.json\n", fromVariable);
        row("variable, absent", "absent.json", "", denied);
        row("variable, a folder", ".", "", denied);
        row("site, absent", "", "Rights.PolicyFile=absent.json\n", denied);
        row("damaged site file", "", "{}\n", denied);
    }

    void whereThePolicyIs()
    {
        QFETCH(const QString, policyVariable);
        QFETCH(const QString, site);
        QFETCH(const QString, expected);
        write("variable.json", R"({"grantedFunctions": [140]})");
        write("site.json", R"({"renamedTools": {"Old.Zoom": "fromSite"}})");

        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"MOVARA_SITE_SETTINGS"_s, write("site.ini", site.toUtf8()));
        if (!policyVariable.isEmpty()) {
            environment.insert(u"MOVARA_POLICY_FILE"_s, m_folder.filePath(policyVariable));
        }
        QProcess client;
        client.setProcessEnvironment(environment);
        client.start(QCoreApplication::applicationFilePath(), {u"--answers"_s});
        QVERIFY(client.waitForFinished());
        QCOMPARE(QString::fromUtf8(client.readAllStandardOutput()), expected);
    }

private:
    QString write(const char *name, const QByteArray &content)
    {
        const QString fileName = m_folder.filePath(QString::fromUtf8(name));
        writeFile(fileName, content);
        return fileName;
    }

    ProgramLog m_log;
    QTemporaryDir m_folder;
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().contains("--answers"_L1)) {
        std::fputs(qUtf8Printable(answers(UserFunctionPermissions::instance())), stdout);
        return 0;
    }
    tst_UserFunctionPermissions test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_UserFunctionPermissions.moc"
