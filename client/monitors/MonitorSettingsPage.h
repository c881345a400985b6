#pragma once

#include "client/monitors/SiteFile.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/properties/KxProperty.h"
#include "platform/util/McHandle.h"

#include <QDialog>

#include <vector>

class DisplayList;
class QDoubleSpinBox;
class QGroupBox;
class QPushButton;
class QSpinBox;
class StatusText;

/// Window with the settings of monitors: which displays are split into two monitors, from which
/// sizes on a monitor counts as medium or large, and the sizes of fonts and thumbnails on each
/// class. Changes hold at once; those of sizes for the session, unless they are saved for the site.
/// GUI thread only.
class MonitorSettingsPage final : public QDialog
{
    Q_OBJECT

public:
    /// @param siteFile where the site's settings are saved; see KxSiteSettings.
    MonitorSettingsPage(const QString &siteFile, QWidget *parent);
    /// Takes over what is being entered.
    ~MonitorSettingsPage() override;

private:
    template <typename Field, typename T>
    struct Entry
    {
        KxProperty<T> *property;
        Field *field;
    };

    QGroupBox *displaysBox();
    QGroupBox *thresholdsBox();
    QGroupBox *sizesBox();
    QWidget *buttons();
    QDoubleSpinBox *addThreshold(const char *key);
    QSpinBox *addSize(const char *key, int smallest, int largest, const QString &suffix);
    /// Has a field show what its setting holds, whoever changes it.
    template <typename Row>
    void follow(const Row &row);
    void applyThresholds();
    void showState();
    [[nodiscard]] bool isInOrder() const;
    [[nodiscard]] QString orderProblem() const;
    /// What is wrong with the values shown; empty when nothing is.
    [[nodiscard]] QString problem() const;
    void resetAll();
    void saveForSite();
    [[nodiscard]] std::vector<const KxVariant *> settings() const;

    SiteFile m_site;
    DisplayList *m_displays;
    std::vector<Entry<QDoubleSpinBox, float>> m_thresholds;
    std::vector<Entry<QSpinBox, int>> m_sizes;
    StatusText *m_message;
    StatusText *m_siteMessage;
    QPushButton *m_save;
    bool m_canSave = false;
    McHandle<ExNotifiable> m_watch;
};
