#pragma once

#include "client/desktop/Placement.h"

#include <QList>
#include <QRect>
#include <QWidget>

#include <vector>

class QCheckBox;

/// A map of the monitors as they stand on the desktop, with numbers and sizes; on each of them the
/// contents can be checked that it is to show. The list of studies is on one monitor only.
class MonitorMap final : public QWidget
{
    Q_OBJECT

public:
    explicit MonitorMap(QWidget *parent = nullptr);

    /// @param primary the number of the main monitor.
    void setMonitors(const QList<QRect> &monitors, int primary);
    void setPlacement(const Placement &placement);
    [[nodiscard]] const Placement &placement() const { return m_placement; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user has chosen another placement.
    void changed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Monitor
    {
        QRect desktop; ///< device-independent pixels of the desktop
        QRect shown; ///< in this widget
        QCheckBox *viewers = nullptr;
        QCheckBox *studies = nullptr;
    };

    [[nodiscard]] QList<QRect> desktops() const;
    void addMonitor(const QRect &desktop);
    QCheckBox *addBox(const QString &text, const QString &toolTip);
    void arrange();
    void showPlacement();
    void chooseViewers(int monitor, bool on);
    void chooseStudies(int monitor, bool on);
    void paintMonitor(QPainter &painter, int number) const;

    std::vector<Monitor> m_monitors;
    int m_primary = 0;
    Placement m_placement;
};
