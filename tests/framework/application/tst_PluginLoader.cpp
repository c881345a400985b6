#include "framework/application/PluginLoader.h"
#include "framework/editors/ExEditor.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/ToolModule.h"
#include "tests/support/Prelude.h"

class tst_PluginLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sample()
    {
        QVERIFY(ExTool::getToolByDecorationKey("Sample.Values", true) == nullptr);
        QVERIFY(PluginLoader::loadFolder(QStringLiteral(SAMPLE_FOLDER)).isEmpty());
        QCOMPARE(PluginLoader::loaded().size(), 1);
        PluginLoader::loadFolder(QStringLiteral(SAMPLE_FOLDER));
        QCOMPARE(PluginLoader::loaded().size(), 1);
        QVERIFY(ExTool::getToolByDecorationKey("Sample.Values", true) != nullptr);
        QCOMPARE(ToolModule::decoration("Sample.Values")->icon, ":/sample/values.svg");
        QCOMPARE(KxPropertyPool::instance().find<int>("Sample.Decimals")->value(), 1);
        ExEditor::doInitCallbacks();
        const std::unique_ptr<ExEditor> editor(ExEditor::getEditor("Size of Volume"));
        const std::unique_ptr<QWidget> panel(editor->widgetForMonitor(0));
        QCOMPARE(
            qobject_cast<QLabel *>(panel.get())->text(), u"The active viewer shows no volume."_s);
    }

    void otherSeriesIsRefused()
    {
        const auto problems = PluginLoader::loadFolder(QStringLiteral(FOREIGN_FOLDER));
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems[0].file.endsWith(u"/foreign-plugin.so"_s));
        QVERIFY2(problems[0].reason.contains(u"version 9.7"_s), qPrintable(problems[0].reason));
        QVERIFY(!qEnvironmentVariableIsSet("FOREIGN_PLUGIN_HAS_RUN"));
    }

    void strangers()
    {
        QVERIFY(PluginLoader::loadFolder(u"/nowhere"_s).isEmpty());
        const QTemporaryDir folder;
        writeFile(folder.filePath(u"notes.so"_s), "no library");
        QVERIFY(PluginLoader::loadFolder(folder.path()).isEmpty());
    }
};

QTEST_MAIN(tst_PluginLoader)

#include "tst_PluginLoader.moc"
