#include "platform/dicom/KxVolumeInfoCache.h"
#include "tests/support/Files.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

class tst_KxVolumeInfoCache : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_log.clear();
    }

    void remembersTheFilesAskedAboutLast()
    {
        KxVolumeInfoCache cache(2);
        cache.setHeaderReader(notingReader());
        const McFilename a = makeFile("a");
        const McFilename b = makeFile("b");
        const McFilename c = makeFile("c");
        for (const McFilename &file : {a, b, a, c, a, b}) {
            QVERIFY(cache.parameterBundle(file));
            QVERIFY(cache.size() <= 2);
        }
        QCOMPARE(m_log.join(u' '), u"a b c b"_s);
        makeFile("b", "newer"); // Changed: read again.
        QCOMPARE(cache.parameterBundle(b)->find("G0010-0010"), std::string("newer"));
        cache.clear();
        QCOMPARE(cache.size(), 0);
    }

    void unreadableFiles()
    {
        KxVolumeInfoCache cache;
        const McFilename file = makeFile("a");
        const McFilename absent = file.parent_path() / "absent";
        QVERIFY(!cache.parameterBundle(file)); // no reader
        QVERIFY(cache.haveCachedVolumeFile(file) && !cache.haveCachedVolumeFile(absent));
        cache.setHeaderReader(notingReader());
        QVERIFY(!cache.parameterBundle(absent) && !cache.haveCachedVolumeFile(absent));
        QVERIFY(cache.haveCachedVolumeFile(file));
        QVERIFY(KxVolumeInfoCache::isStorageReadable(absent));
        QVERIFY(!KxVolumeInfoCache::isStorageReadable(absent / "deeper"));

        makeFile("absent");
        QVERIFY(cache.haveCachedVolumeFile(absent)); // what failed once is tried again
        QVERIFY(QFile::remove(QString::fromStdString(absent.string())));
        QVERIFY(!cache.haveCachedVolumeFile(absent)); // what went away is not there any more
    }

    void replacedReader()
    {
        KxVolumeInfoCache cache;
        const McFilename file = makeFile("a");
        // The reader is replaced while it reads: its answer is old, and must not be remembered.
        cache.setHeaderReader([this, &cache](const McFilename &) {
            cache.setHeaderReader(notingReader());
            return McHandle<HxParamBundle>(new HxParamBundle);
        });
        QVERIFY(cache.parameterBundle(file));
        QCOMPARE(cache.size(), 0);
        QCOMPARE(cache.parameterBundle(file)->find("G0010-0010"), std::string("x"));
    }

    void manyThreads()
    {
        KxVolumeInfoCache cache(3);
        std::vector<McFilename> files;
        for (const char *const name : {"a", "b", "c", "d", "e"}) {
            files.push_back(makeFile(name, name));
        }
        cache.setHeaderReader([](const McFilename &file) {
            McHandle<HxParamBundle> bundle(new HxParamBundle);
            bundle->set("name", file.filename().string());
            return bundle;
        });
        std::atomic<int> wrong = 0;
        std::vector<std::jthread> threads;
        for (std::size_t t = 0; t < 4; ++t) {
            threads.emplace_back([&, t] {
                for (std::size_t i = 0; i < 300; ++i) {
                    const McFilename &file = files[(i * (t + 1)) % files.size()];
                    const McHandle<HxParamBundle> bundle = cache.parameterBundle(file);
                    wrong += bundle->find("name") == file.filename().string() ? 0 : 1;
                }
            });
        }
        threads.clear();
        QVERIFY(wrong == 0 && cache.size() <= 3);
    }

private:
    McFilename makeFile(const char *name, const QByteArray &content = "x")
    {
        const QString fileName = m_folder->filePath(QString::fromLatin1(name));
        writeFile(fileName, content);
        return fileName.toStdString();
    }

    /// A reader that takes a file's content as its name and notes which files it read.
    KxVolumeInfoCache::HeaderReader notingReader()
    {
        return [this](const McFilename &name) {
            m_log << QString::fromStdString(name.filename().string());
            const QByteArray content = readFile(QString::fromStdString(name.string()));
            McHandle<HxParamBundle> bundle(content.isEmpty() ? nullptr : new HxParamBundle);
            if (bundle) {
                bundle->set("G0010-0010", content.toStdString());
            }
            return bundle;
        };
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_log;
};

QTEST_APPLESS_MAIN(tst_KxVolumeInfoCache)
#include "tst_KxVolumeInfoCache.moc"
