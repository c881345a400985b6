#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QMenuBar>

/// Menu bar whose height follows its width, so that its corner widget stays at its right end.
class MOVARA_FRAMEWORK_EXPORT QxMenuBar : public QMenuBar
{
    Q_OBJECT

public:
    explicit QxMenuBar(QWidget *parent = nullptr);

    /// As high as its menus and the corner widget need.
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    /// The same: a menu bar is not squeezed.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
};
