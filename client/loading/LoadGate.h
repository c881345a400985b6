#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

#include <QObject>
#include <QStringList>

#include <set>
#include <string>
#include <utility>
#include <vector>

/// The one way from what the user wants to see to loading it: has the application's load helper ask
/// what must be asked, and keeps its loaded list. What is loaded already passes without a question.
/// Patients that are to be opened beside one that is open are asked for once; the answer holds for
/// the two of them until one is closed. GUI thread only; questions are modal, and the viewers may
/// be others afterwards.
class LoadGate final : public QObject
{
    Q_OBJECT

public:
    using Entry = McHandle<Zel::DicomDirectoryEntry>;
    using Entries = McDArray<Entry>;

    explicit LoadGate(QObject *parent = nullptr);
    ~LoadGate() override;

    /// With nobody there to answer, patients and incomplete studies pass without a question.
    void setUnattended(bool unattended) { m_isUnattended = unattended; }

    /// Asks about series and volumes that are to be loaded together, each question at most once.
    /// @return those that may be shown, entered into the loaded list; none when loading them was
    /// refused. The user has been told why.
    Entries admit(const Entries &wanted);
    /// Series or volumes are no longer loaded. Those that are not in the loaded list are ignored.
    void close(const Entries &entries);
    /// Nothing is loaded any more.
    void closeAll();

    /// Whether studies of other patients than the locked ones are refused.
    [[nodiscard]] static bool isPatientLocked();
    /// Whether patients are open, and all of them have an ID that a lock can hold on to.
    [[nodiscard]] static bool canLockPatient();
    /// Locks on the patients that are open, also for the time after they are closed, or lifts the
    /// lock. Ignored when there is nothing to do, or nobody to lock on.
    void setPatientLocked(bool locked);

Q_SIGNALS:
    /// What is open may be other than before, or the lock is.
    void changed();
    /// The lock was set or lifted. @param names of the locked patients, for people; empty when it
    /// was lifted.
    void patientLockChanged(const QStringList &names);
    /// A patient's last series is no longer loaded. @param name for people.
    void patientClosed(const QString &name);

private:
    using Patients = std::vector<Entry>;
    using Pair = std::pair<Entry, Entry>;

    [[nodiscard]] bool checkPatients(const Entries &added);
    /// Whether the lock allows a patient; tells the user when it does not.
    [[nodiscard]] bool checkLock(const Entry &patient) const;
    /// Whether a patient may be open beside all others without a question.
    [[nodiscard]] bool isAccepted(const Entry &patient, const Patients &others) const;
    void forgetClosedPairs();
    void tellClosed(const Patients &before);

    /// Ordered within and among themselves, so that each is there once.
    std::set<Pair> m_acceptedPairs;
    /// The load helper's lock knows one of several patients that were open.
    std::set<std::string> m_lockedIds;
    bool m_isUnattended = false;
};
