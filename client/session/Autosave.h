#pragma once

#include "client/session/AutosaveSlot.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/session/ExSessionData.h"
#include "platform/util/McHandle.h"

#include <QElapsedTimer>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

/// Saves the session in the background a moment after something has changed, but not more often
/// than the setting "Session.AutosaveSeconds" says; 0 there switches it off. What is saved is taken
/// in the GUI thread and written in another one. The file goes when the object goes: one that is
/// left tells of a crash. GUI thread only.
class Autosave final : public QObject
{
    Q_OBJECT

public:
    /// What is to be saved; nothing when it must wait until the next change.
    using Take = std::function<std::optional<ExSessionData>()>;

    Autosave(std::unique_ptr<AutosaveSlot> slot, Take take);
    /// Waits for what is being written.
    ~Autosave() override;

    /// From now on saves to this slot, whose file stays until it is replaced; that of the former
    /// one goes.
    void setSlot(std::unique_ptr<AutosaveSlot> slot);
    /// Something has changed that is to be saved.
    void changed();

Q_SIGNALS:
    /// The last save has failed, the one before it has not. @param problem for the user.
    void failed(const QString &problem);

private:
    void save();
    void write(const QByteArray &bytes);
    void written(const QString &problem);

    std::unique_ptr<AutosaveSlot> m_slot;
    Take m_take;
    QByteArray m_saved;
    bool m_hasFailed = false;
    QTimer m_timer;
    QElapsedTimer m_sinceSave;
    QThreadPool m_writer; ///< of one thread
    McHandle<ExNotifiable> m_watch;
};
