#include "platform/util/McLogFile.h"
#include "tests/support/Files.h"

#include <QTemporaryDir>
#include <QTest>

class tst_McLogFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesArriveInTheFile()
    {
        const QTemporaryDir folder;
        qputenv("MOVARA_LOG_DIR", folder.path().toUtf8());
        McLogFile log;
        log.print("ToolLog", "100 % of {} {0} triggered");
        log.flush();
        const QByteArray text = readFile(QString::fromStdString(log.fileName()));
        QVERIFY2(text.endsWith(" I [ToolLog] 100 % of {} {0} triggered\n"), text.constData());
    }

    void folderThatCannotBeMade()
    {
        qputenv("MOVARA_LOG_DIR", "/proc/no-such-folder");
        McLogFile log;
        QVERIFY(log.fileName().empty());
        log.print("Tag", "goes nowhere, harms nobody");
        McLogFile::warnf("%s %d\n", "a warning with a brace {}", 1);
    }
};

QTEST_APPLESS_MAIN(tst_McLogFile)
#include "tst_McLogFile.moc"
