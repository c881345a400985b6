#pragma once

#include "framework/monitors/ExMonitorManager.h"

#include <QWidget>

#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;

/// The displays, one a line: name and size, whether it is split into two monitors, and the class of
/// these. Follows displays that come and go once refresh() is called. Splitting holds at once.
class DisplayList final : public QWidget
{
    Q_OBJECT

public:
    explicit DisplayList(QWidget *parent = nullptr);

    /// Shows the displays that there are now.
    void refresh();
    /// Shows the classes that the monitors have by these thresholds, in units of 2^20 pixels.
    void setThresholds(float small, float medium);
    /// The name of a class for the user.
    [[nodiscard]] static QString nameOf(ExMonitorManager::MonitorCategory category);

Q_SIGNALS:
    /// What was split or joined could not be written; it holds for this session.
    void notKept();

private:
    struct Row
    {
        QCheckBox *split;
        QLabel *category;
        QList<int> monitors;
    };

    void clear();
    void addRow(const QString &text, bool canBeSplit);
    void addNote(const QString &text);
    void showCategories();
    void applySplit();
    [[nodiscard]] QString categoryText(const QRect &monitor) const;

    QGridLayout *m_grid;
    QStringList m_texts;
    std::vector<Row> m_rows;
    float m_small = 0;
    float m_medium = 0;
};
