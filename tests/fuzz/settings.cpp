// The user's settings file: whatever is in it, a value can be written and read afterwards.
#include "platform/properties/KxFileSerializer.h"
#include "tests/fuzz/FuzzInput.h"

#include <QDir>

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static FuzzFile file("settings.ini");
    const QByteArray bytes = bytesOf(data, size);
    KxFileSerializer store(file.write(bytes));
    const QString key = QStringLiteral("UI.ColorScheme");
    (void)store.read(key);
    const QString value = QString::fromUtf8(bytes.left(64));
    require(store.write(key, value));
    require(store.read(key) == value);
    require(KxFileSerializer(store.fileName()).read(key) == value);
    // Damaged files are set aside: not for ever here.
    QDir folder(file.folder());
    const QStringList names = folder.entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        folder.remove(name);
    }
    return 0;
}
