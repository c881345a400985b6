#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// What the fuzzer calls with each input; 0 when it is done.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
/// Called once, before the first input.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);

inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

/// Ends the program when something that must hold does not, so that the fuzzer keeps the input.
inline void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// One file, in memory where the system has a place for that, with the bytes of the present input.
/// What is logged about it goes to memory, too.
class FuzzFile
{
public:
    explicit FuzzFile(const char *name)
        : m_name(m_folder.filePath(QLatin1String(name)))
    {
        qputenv("MOVARA_LOG_DIR", "/dev/shm");
    }

    const QString &write(const QByteArray &bytes)
    {
        QFile file(m_name);
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return m_name;
    }
    [[nodiscard]] QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder{QStringLiteral("/dev/shm/movara-fuzz")};
    QString m_name;
};
