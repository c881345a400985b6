#include "client/session/SessionFile.h"
#include "tests/support/Files.h"
#include "tests/support/SmallDisk.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

ExSessionData someSession(int size = 200)
{
    ExSessionData session;
    session.setBlock(u"Viewers"_s, QByteArray(size, 'v'));
    session.setBlock(u"Überschrift"_s, {});
    return session;
}

/// Read into a session that has something in it: what must stay when reading fails.
QString readInto(const QByteArray &bytes, ExSessionData &session)
{
    session.setBlock(u"before"_s, "kept");
    return SessionFile::fromBytes(bytes, session);
}

} // namespace

class tst_SessionFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damageChangesNothing()
    {
        const QByteArray whole = SessionFile::toBytes(someSession());
        ExSessionData read;
        QCOMPARE(SessionFile::fromBytes(whole, read), QString());
        QVERIFY(read == someSession());
        ExSessionData before;
        before.setBlock(u"before"_s, "kept");
        const auto isRefused = [&before](const QByteArray &bytes) {
            ExSessionData session;
            return !readInto(bytes, session).isEmpty() && session == before;
        };
        for (qsizetype size = 0; size < whole.size(); ++size) {
            QVERIFY2(isRefused(whole.left(size)), qPrintable(QString::number(size)));
        }
        for (qsizetype bit = 0; bit < whole.size() * 8; ++bit) {
            QByteArray flipped = whole;
            flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
            QVERIFY2(isRefused(flipped), qPrintable(QString::number(bit)));
        }
        QVERIFY(isRefused(whole + 'x'));
    }

    void tellsWhatIsWrong()
    {
        const QByteArray whole = SessionFile::toBytes(someSession());
        const std::pair<QByteArray, QString> rows[] = {{QByteArray(), u"not a session"_s},
            {"[General]\nkey=value\n", u"not a session"_s}, {whole.chopped(1), u"cut short"_s},
            {QByteArray(whole).replace(8, 1, "\x07"), u"format 7"_s},
            {QByteArray(whole).replace("\r\n", "\n"), u"not a session"_s}, // other ends of lines
            {QByteArray(whole).replace("vv", "vw"), u"damaged"_s}};
        const QTemporaryDir folder;
        const QString name = folder.filePath(u"x.movara-session"_s);
        ExSessionData session;
        for (const auto &[bytes, message] : rows) {
            writeFile(name, bytes);
            const QString problem = SessionFile::read(name, session);
            QVERIFY2(problem.startsWith(name) && problem.contains(message), qPrintable(problem));
        }
        QVERIFY(SessionFile::read(name % u"-absent", session).contains(u"cannot be read"_s));
    }

    void onlyTheOwnerReads()
    {
        const QTemporaryDir folder;
        const QString name = folder.filePath(u"x.movara-session"_s);
        writeFile(name, "an earlier one, for all to read");
        QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
        QCOMPARE(SessionFile::write(name, SessionFile::toBytes(someSession())), QString());
        QCOMPARE(QFile::permissions(name)
                & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
            QFile::Permissions());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
        const QString problem = SessionFile::write(u"/nonexistent/x"_s, "x");
        QVERIFY2(problem.contains(u"save to another folder"_s), qPrintable(problem));
    }

    void fullDisk()
    {
        const SmallDisk disk;
        if (!disk.isMounted()) {
            QSKIP("only root can mount a small disk");
        }
        const QString name = disk.path() % u"/x.movara-session";
        const QByteArray small = SessionFile::toBytes(someSession());
        QCOMPARE(SessionFile::write(name, small), QString());
        const QString problem = SessionFile::write(name, SessionFile::toBytes(someSession(100000)));
        QVERIFY2(problem.contains(u"is unchanged. Make room"_s), qPrintable(problem));
        QCOMPARE(readFile(name), small);
        QCOMPARE(QDir(disk.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_SessionFile)
#include "tst_SessionFile.moc"
