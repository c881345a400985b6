#pragma once

#include "client/desktop/Placement.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/util/McHandle.h"

#include <QDialog>

class Desktop;
class MonitorMap;
class QDialogButtonBox;
class QLabel;

/// Has the user choose what is shown on which monitor. Follows monitors that come and go while it
/// is open. The desktop must outlive it.
class PlacementDialog final : public QDialog
{
    Q_OBJECT

public:
    PlacementDialog(Desktop &desktop, QWidget *parent);

private:
    void readMonitors();
    void apply();
    /// Tells what the present choice means or why it cannot be.
    void explain();
    [[nodiscard]] static QString text(const Placement &placement);
    [[nodiscard]] static QString text(Placement::Problem problem);

    Desktop &m_desktop;
    MonitorMap *m_map;
    QLabel *m_explanation;
    QDialogButtonBox *m_buttons;
    McHandle<ExNotifiable> m_watch;
};
