#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QWidget>

/// Empty space in a tool bar, along the direction in which the bar runs. Owned by its parent. GUI
/// thread only.
class MOVARA_FRAMEWORK_EXPORT SpacerWidget : public QWidget
{
    Q_OBJECT

public:
    /// @param size in device-independent pixels. Takes no space before the first
    /// updateOrientation().
    explicit SpacerWidget(int size, QWidget *parent = nullptr);

public Q_SLOTS:
    /// The bar runs in this direction now.
    void updateOrientation(Qt::Orientation orientation);

private:
    int m_size;
};
