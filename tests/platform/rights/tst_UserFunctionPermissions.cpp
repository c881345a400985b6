#include "platform/rights/UserFunctionPermissions.h"
#include "tests/platform/properties/ProgramLog.h"
#include "tests/support/Files.h"
#include "tests/support/Process.h"

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
        for (const char *const key : {"A", "B", "C", "X", "a", "", "Größe"}) {
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

    void notAPolicy()
    {
        const char *const pattern = R"("deniedTools" holds something that is not a pattern)";
        const char *const code
            = R"("grantedFunctions" holds something that is not a function code)";
        const std::pair<const char *, const char *> rows[] = {{"", "illegal value"},
            {R"({"grantedFunctions": [140], "deniedTools": ["A",)", "unterminated array"},
            {R"(["A"])", "it is not an object"},
            {R"({"deniedTool": ["A"]})", R"("deniedTool" is not known)"},
            {R"({"deniedTools": "A"})", R"("deniedTools" is not a list)"},
            {R"({"deniedTools": ["A", 1]})", pattern}, {R"({"deniedTools": ["[z-a]"]})", pattern},
            {R"({"grantedFunctions": [140, 1.5]})", code},
            {R"({"grantedFunctions": [140, "141"]})", code},
            {R"({"renamedTools": ["A"]})", R"("renamedTools" is not an object)"},
            {R"({"renamedTools": {"Old.Zoom": ""}})",
                R"("renamedTools" holds a new identifier that is not a text)"},
            {R"({"renamedTools": {"Old.Zoom": "A", "A": "B", "B": "A"}})",
                R"("renamedTools" renames in a circle)"}};
        for (const auto &[content, problem] : rows) {
            const QString name = write("policy.json", content);
            QCOMPARE(answers(UserFunctionPermissions(name)), denied);
            QCOMPARE(m_log.take(),
                QStringList{u"W WARNING - the policy %1 cannot be used, every tool and editor is "
                            "denied: %2"_s.arg(name, QLatin1String(problem))});
        }
    }

    void whereThePolicyIs()
    {
        const QString fromVariable = u"tool 1 editor 1 native 1 Old.Zoom"_s;
        const QString fromSite = u"tool 1 editor 1 native 0 fromSite"_s;
        // The variable's file, the site's settings, what the rights say then
        const std::tuple<QString, QByteArray, QString> rows[]
            = {{QString(), "UI.A=1\n", allowed}, {u"variable.json"_s, "UI.A=1\n", fromVariable},
                {QString(), "Rights.PolicyFile=site.json\n", fromSite},
                {u"variable.json"_s, "Rights.PolicyFile=site.json\n", fromVariable},
                {u"absent.json"_s, "", denied}, {u"."_s, "", denied}, // a folder
                {QString(), "Rights.PolicyFile=absent.json\n", denied},
                {QString(), "{}\n", denied}}; // a damaged file of the site
        write("variable.json", R"({"grantedFunctions": [140]})");
        write("site.json", R"({"renamedTools": {"Old.Zoom": "fromSite"}})");
        for (const auto &[variable, site, expected] : rows) {
            const QString policy = variable.isEmpty() ? QString() : m_folder.filePath(variable);
            QCOMPARE(answerTo("--answers",
                         {{"MOVARA_SITE_SETTINGS", write("site.ini", site)},
                             {"MOVARA_POLICY_FILE", policy}}),
                expected);
        }
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
