#pragma once

#include <QObject>
#include <QTimer>

/// Sees to it that settings which cannot be saved, for the disk is full or the folder may not be
/// written to, are not lost: has the user told, and tries again until they are saved, a last time
/// at its end. One in the process. GUI thread only.
class SettingsKeeper final : public QObject
{
    Q_OBJECT

public:
    explicit SettingsKeeper(QObject *parent = nullptr);
    ~SettingsKeeper() override;

Q_SIGNALS:
    /// Settings cannot be saved, or, later, are saved at last. From the event loop. @param message
    /// for the user.
    void told(const QString &message);

private:
    void failed(const QString &file);
    void tryAgain();

    QTimer m_timer;
};
