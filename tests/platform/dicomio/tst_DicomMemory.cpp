#include "platform/dicomio/DicomScanner.h"
#include "platform/dicomio/DicomVolumeLoader.h"
#include "tests/platform/dicomio/DicomFixture.h"

#include <QTest>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Requests for memory of this size and above fail.
std::atomic<std::size_t> refusedSize = SIZE_MAX;

constexpr int side = 200;
constexpr std::size_t bytesPerSlice = sizeof(std::int16_t) * side * side;

} // namespace

// All forms of new that the forms of delete below have to do with: sanitizers look after that.

void *operator new(std::size_t size, const std::nothrow_t & /*tag*/) noexcept
{
    return size >= refusedSize ? nullptr : std::malloc(size);
}

void *operator new(std::size_t size)
{
    void *const memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

/// What is thrown in the threads that scan and read is told, and takes nothing along.
class tst_DicomMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { refusedSize = SIZE_MAX; }

    void whatWasReadStays()
    {
        DicomFixture files;
        const std::vector<std::int16_t> pixels(side * side, 7);
        constexpr int slices = 60;
        for (int i = 1; i <= slices; ++i) {
            files.add(std::to_string(i) + ".dcm",
                *DicomFixture::attributes(i,
                    {{"G0028-0010", std::to_string(side)}, {"G0028-0011", std::to_string(side)},
                        {"G0020-0032", "0\\0\\" + std::to_string(i)}}),
                pixels);
        }
        DicomVolumeLoader loader;
        QString problem;
        int first = -1;
        connect(
            &loader, &DicomVolumeLoader::sliceLoaded, this,
            [&first](int /*phase*/, int z) {
                first = z;
                refusedSize = bytesPerSlice; // The thread is not that far ahead.
            },
            Qt::SingleShotConnection);
        connect(&loader, &DicomVolumeLoader::failed, this,
            [&problem](const QString &reason) { problem = reason; });
        loader.start(files.onlySeries());
        QTRY_VERIFY(!loader.isRunning());
        QCOMPARE(problem, u"There is not enough memory."_s);
        QCOMPARE(loader.series()->volume(0)->value(5, 5, first), 7.0);

        refusedSize = SIZE_MAX; // And once there is memory again:
        loader.start(files.onlySeries());
        problem.clear();
        QTRY_VERIFY(!loader.isRunning());
        QCOMPARE(problem, QString());
        QCOMPARE(loader.series()->volume(0)->value(5, 5, slices - 1), 7.0);
    }

    void scanThatFailsSaysSo()
    {
        DicomFixture files;
        constexpr int count = 300; // Their headers take more at once than anything else.
        for (int i = 0; i < count; ++i) {
            files.addText(std::to_string(i), "no DICOM");
        }
        DicomScanner scanner;
        refusedSize = 50000;
        scanner.start({files.folder()});
        QTRY_VERIFY(!scanner.isRunning());
        QCOMPARE(scanner.result().failure, std::string("There is not enough memory."));
        refusedSize = SIZE_MAX;
        scanner.start({files.folder()});
        QTRY_VERIFY(!scanner.isRunning());
        QVERIFY(scanner.result().failure.empty() && scanner.result().numFiles == count);
    }

    /// What a scan has taken is given back even where there is no memory for more threads.
    void noMemoryAtAll()
    {
        DicomFixture files;
        constexpr int count = 600; // In several pieces, each given back by another thread.
        for (int i = 0; i < count; ++i) {
            files.addText(std::to_string(i), "");
        }
        int calls = 0;
        const auto useUp = [&calls](int, int) {
            if (++calls == 2) {
                refusedSize = 1;
                throw std::bad_alloc();
            }
        };
        bool isTold = false;
        try {
            static_cast<void>(DicomScanner::scanNow({files.folder()}, useUp));
        } catch (const std::bad_alloc &) {
            isTold = true;
        }
        refusedSize = SIZE_MAX;
        QVERIFY(isTold);
    }

    void whatProgressThrowsComesOut()
    {
        DicomFixture files;
        files.addStack(20); // For several threads.
        const auto refuse = [](int, int) { throw std::runtime_error("no display"); };
        QVERIFY_THROWS_EXCEPTION(
            std::runtime_error, static_cast<void>(DicomScanner::scanNow({files.folder()}, refuse)));
    }
};

QTEST_GUILESS_MAIN(tst_DicomMemory)
#include "tst_DicomMemory.moc"
