#pragma once

#include "client/session/SessionState.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/session/ExSerializable.h"
#include "platform/util/McHandle.h"

#include <QCoreApplication>

#include <functional>
#include <map>

class Workstation;
class WorkstationViewer;

/// Which layout there is, which series each viewer shows, and how, for a session.
/// Views are put in force as soon as the images that they are of are there. GUI thread only.
class ViewersPart final : public ExSerializable
{
    Q_DECLARE_TR_FUNCTIONS(ViewersPart)

public:
    /// @param shown called whenever a restored view has been put in force.
    ViewersPart(Workstation &workstation, std::function<void()> shown);
    ~ViewersPart() override;

    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] const char *persistentName() const override;
    void serialize(ExSessionData &session) override;
    /// The studies must have been found already.
    void deserialize(ExSessionData &session) override;

    /// What the last deserialize() could not bring back, for the user.
    [[nodiscard]] const QStringList &missing() const { return m_missing; }

private:
    [[nodiscard]] QStringList layouts() const;
    void applyLayouts(const QStringList &names);
    void restoreViewers(const std::vector<SessionState::Viewer> &states);
    void putInForce(WorkstationViewer &viewer);
    void notified(const ExNotification &notification);

    Workstation &m_workstation;
    std::function<void()> m_shown;
    /// Views whose images are still to come.
    std::map<WorkstationViewer *, SessionState::Viewer> m_waiting;
    QStringList m_missing;
    McHandle<ExNotifiable> m_watch;
};
