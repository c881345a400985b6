#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QCursor>
#include <QWidget>

#include <optional>

class ExBaseViewer;

/// Base of the widgets in which viewers draw: from an input event on it the framework finds the
/// viewer. Input that the actions of the viewer's event handler have not consumed is offered to the
/// viewer's modal tools, and only what these have no use for goes the toolkit's way. Follows the
/// pointer without a button held, so that tools can show what they would do. Owned by its toolkit
/// parent.
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

protected:
    /// Offers input to the modal tools, with the event that the viewer's handler made of it;
    /// nothing is offered while the widget is disabled or the handler does not watch it. For mouse
    /// input the widget takes the cursor shape that the tools give (Kx::KxCursorShape), and its own
    /// cursor again when that is the default one. Classes that override this pass on what they do
    /// not treat.
    bool event(QEvent *event) override;

private:
    bool offerToModalTools();
    void showCursor(int shape);

    bool m_showsToolCursor = false;
    /// What the widget had before it showed that of a tool.
    std::optional<QCursor> m_ownCursor;
};
