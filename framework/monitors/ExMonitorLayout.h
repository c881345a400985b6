#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QLayout>
#include <QList>
#include <QRect>

#include <memory>
#include <vector>

/// Lays out the main windows of a monitor widget as their monitors stand on the desktop: each gets
/// the share of the widget that its monitor has of all of them together. Full screen that is pixel
/// for pixel the monitor itself.
class MOVARA_FRAMEWORK_EXPORT ExMonitorLayout : public QLayout
{
    Q_OBJECT

public:
    explicit ExMonitorLayout(QWidget *parent);
    ~ExMonitorLayout() override;

    /// Adds a widget at the end, which stands for the given monitor.
    void addWidget(QWidget *widget, const QRect &monitor);
    /// Sets the monitor that a widget stands for; an unknown widget is ignored.
    void setMonitorRect(const QWidget *widget, const QRect &monitor);

    void addItem(QLayoutItem *item) override;
    [[nodiscard]] QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    [[nodiscard]] int count() const override;
    void setGeometry(const QRect &rect) override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;

private:
    struct Place
    {
        std::unique_ptr<QLayoutItem> item;
        QRect monitor;
    };

    [[nodiscard]] QRect total() const;

    std::vector<Place> m_places;
};
