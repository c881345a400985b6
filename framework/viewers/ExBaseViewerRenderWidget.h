#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QWidget>

class ExBaseViewer;

/// Base of the widgets in which viewers draw: from an input event on it the framework finds the
/// viewer. Owned by its toolkit parent.
class MOVARA_FRAMEWORK_EXPORT ExBaseViewerRenderWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ExBaseViewerRenderWidget(QWidget *parent);
    ~ExBaseViewerRenderWidget() override;

    /// The viewer that draws in the widget; may be null.
    [[nodiscard]] virtual ExBaseViewer *viewer() = 0;

public Q_SLOTS:
    /// Publishes, as the widget's dynamic property "squish_isFinalImage", whether the image shown
    /// is the final one or a quick preview, for programs that drive the user interface from
    /// outside. True without a viewer. The viewer implementation calls it after every frame.
    void propertyUpdate();
};
