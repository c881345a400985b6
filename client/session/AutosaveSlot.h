#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

/// A file for autosaves that belongs to one process at a time: a lock beside it says whose it is.
/// A file whose lock nobody holds any more was left by a process that has crashed.
class AutosaveSlot
{
public:
    /// Where autosaves are: in the user's own data, for nobody else to read.
    static QString defaultFolder();
    /// A slot of @p folder without a file, locked. Null when none can be locked.
    static std::unique_ptr<AutosaveSlot> takeFree(const QString &folder);
    /// The slot with the latest file that was left there, locked. Null when there is none.
    static std::unique_ptr<AutosaveSlot> takeLeft(const QString &folder);

    /// Gives the slot free; the file stays.
    ~AutosaveSlot();
    AutosaveSlot(const AutosaveSlot &) = delete;
    AutosaveSlot &operator=(const AutosaveSlot &) = delete;

    /// Full name; the file need not be there.
    [[nodiscard]] const QString &file() const { return m_file; }
    /// Removes the file, if it is there.
    void clear() const;
    /// Gives the file another name beside it, under which it is not restored. @return that; empty
    /// when it cannot be renamed.
    [[nodiscard]] QString setAside() const;

private:
    explicit AutosaveSlot(const QString &file);
    static std::unique_ptr<AutosaveSlot> take(const QString &folder, int number);

    QString m_file;
    QLockFile m_lock;
};
