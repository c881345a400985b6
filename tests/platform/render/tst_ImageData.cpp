#include "platform/render/KxMsg.h"
#include "platform/render/KxSlice.h"
#include "platform/render/KxVolume.h"

#include <QTest>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

template <typename T>
constexpr bool isWritable = requires(KxMsg &message, T value)
{
    message << value;
};
// Pointers would be taken for truth values.
static_assert(isWritable<bool> && !isWritable<const char *> && !isWritable<int *>);

} // namespace

class tst_ImageData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void voxels()
    {
        using Type = KxVolume::ScalarType;
        const std::tuple<Type, int, const char *, double> rows[] = {{Type::UInt8, 1, "01ff", 255.0},
            {Type::UInt8, 3, "0180", 128.0}, {Type::Int16, 1, "010018fc", -1000.0},
            {Type::Float32, 2, "00000000000040c0", -3.0}};
        for (const auto &[type, components, lastTwo, value] : rows) {
            const McHandle<KxVolume> volume(new KxVolume({4, 3, 2}, type, components));
            const QByteArray bytes = QByteArray::fromHex(lastTwo);
            const auto count = static_cast<std::size_t>(bytes.size());
            const int last = components - 1;
            QCOMPARE(
                volume->bytesPerSlice(), static_cast<std::size_t>(4 * 3 * components) * count / 2);
            std::memcpy(volume->slice(1) + volume->bytesPerSlice() - count, bytes.data(), count);
            QCOMPARE(volume->value(3, 2, 1, last), value);
            QCOMPARE(volume->value(3, 2, 0, last), 0.0);
            const int outside[][4] = {{-1, 0, 0, 0}, {4, 0, 0, 0}, {0, -1, 0, 0}, {0, 3, 0, 0},
                {0, 0, -1, 0}, {0, 0, 2, 0}, {0, 0, 0, -1}, {0, 0, 0, components}};
            for (const auto &at : outside) {
                QVERIFY(std::isnan(volume->value(at[0], at[1], at[2], at[3])));
            }
        }
    }

    void geometry()
    {
        const McHandle<KxVolume> volume(new KxVolume({5, 3, 2}, KxVolume::ScalarType::UInt8));
        // Tilted: slices go up and forward.
        volume->setVoxelToPatient(McTransform3d({0.5, 0, 0}, {0, 2, 0}, {0, 3, 4}, {10, 20, 30}));
        QCOMPARE(volume->spacing(), (std::array{0.5, 2.0, 5.0}));
        QVERIFY(volume->center() == McVec3d(11, 23.5, 32));
        const KxSlice coronal({0, 10, 0}, {1, 0, 0}, {0, 0, -1});
        QCOMPARE(coronal.distance({5, 12, 7}), 2.0);
    }

    void messages()
    {
        const std::string text("caf\xc3\xa9\0!", 7);
        KxMsg message;
        message << std::numeric_limits<std::int32_t>::min() << true << -0.5F << text << 0x01020304;
        QCOMPARE(message.bytes().toHex(),
            QByteArray("0000008001000000000000bf07000000636166c3a9002104030201"));
        std::int32_t number = 0;
        bool flag = false;
        float real = 0;
        std::string read;
        message >> number >> flag >> real >> read;
        QVERIFY(number == std::numeric_limits<std::int32_t>::min() && flag && !message.atEnd());
        QVERIFY(read == text && qFuzzyCompare(real, -0.5F));
        message >> number;
        QVERIFY(message.isGood() && message.atEnd());
        QCOMPARE(number, 0x01020304);
        message >> number;
        message << 5; // After an error nobody knows where this begins: it is not read.
        message >> number >> flag >> read;
        QVERIFY(number == 0 && !flag && read.empty() && !message.isGood());
    }

    void brokenTexts()
    {
        // Cut in the length and in the text, a negative and a huge length.
        for (const char *bytes : {"", "050000", "0500000061626364", "ffffffff61", "ffffff7f61"}) {
            KxMsg message(QByteArray::fromHex(bytes));
            std::string text = "before";
            message >> text;
            QVERIFY2(text.empty() && !message.isGood(), bytes);
        }
    }
};

QTEST_APPLESS_MAIN(tst_ImageData)
#include "tst_ImageData.moc"
