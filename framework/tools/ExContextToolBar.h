#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/util/McHandle.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <map>
#include <vector>

class ExActionUI;
class ExTool;
class ExToolBar;
class QLabel;
class QWidget;

/// Small tool bar with a line of text above it, the display hint, that floats in the bottom right
/// corner of a viewer's widget while a modal tool is active, and shows that tool's sub-tools. The
/// viewer manager owns the one that is used. It outlives the widgets that it floats in, but not the
/// toolkit's application object. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExContextToolBar : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ExContextToolBar)

public:
    ExContextToolBar();
    ~ExContextToolBar() override;

    /// Moves bar and hint into a widget, and shows them there when the bar has something to show;
    /// null hides them. Nothing when the widget is the attached one.
    /// @param corner is kept; the place is always the bottom right corner.
    void attachTo(QWidget *widget, Qt::Corner corner);
    /// Takes bar and hint out of the widget, when it is the attached one. It stays the attached
    /// one, so that attachTo() brings the bar back only after another widget had it: a viewer that
    /// is taken off its screen is not to get the bar again by the way.
    void detachFrom(QWidget *widget);
    /// Shows bar and hint, from the event loop, when the widget has its place, or hides them at
    /// once. Nothing unless the attached widget is visible.
    void setVisible(bool visible);
    [[nodiscard]] bool isVisible() const;
    /// Whether nothing is on the bar.
    [[nodiscard]] bool isEmpty() const;

    /// Sets the text above the bar; an empty one hides it.
    void setDisplayHint(const QString &hint);
    /// @param pointSize in points; nothing unless it is positive.
    void setDisplayHintFontSize(int pointSize);

    /// Adds a widget at the end of the bar and shows the bar; nothing for null or a widget that is
    /// in the bar. The bar is the widget's parent until it is removed.
    void addWidget(QWidget *widget);
    /// The same, before the action at @p index; at the end when there are fewer, and at the front
    /// for a negative one.
    void insertWidget(QWidget *widget, int index);
    /// Takes a widget out and hides it; it belongs to the caller again, without a parent. The bar
    /// hides when nothing is left in it.
    void removeWidget(QWidget *widget);

    /// Adds the members of a tool that is a group as well; others have no sub-tools. Hides the bar
    /// when there is one to add: setVisible() shows it when all is there.
    void appendSubTools(const McHandle<ExTool> &tool);
    /// Takes the members of such a tool off the bar, which is shown again with what is left.
    void removeSubTools(const McHandle<ExTool> &tool);
    /// The same with the members themselves, for a tool that is being destroyed.
    void removeSubTools(const std::vector<McHandle<ExTool>> &members);
    /// Hides, detaches and empties the bar.
    void removeAll();

    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void delayedShow();

private:
    void setParentOfParts(QWidget *parent);
    void showParts();
    void hideParts();
    void hideWhenEmpty();
    void place();
    void addSubTool(ExTool &member);
    void removeSubTool(ExTool &member, ExActionUI *action);

    QPointer<ExToolBar> m_bar;
    QPointer<QLabel> m_hint;
    std::map<McHandle<ExTool>, QPointer<ExActionUI>> m_subTools;
    QPointer<QWidget> m_attached;
    QTimer m_showTimer;
    Qt::Corner m_corner = Qt::BottomRightCorner;
};
