#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QPointer>
#include <QWidget>

class ExEditor;
class QVBoxLayout;

/// The window that a floating editor is in: under the title bar a handle, by which the panel can be
/// dragged back into a region, and a button that docks it. Closing it docks the editor where it was
/// before. Made by ExEditor::show(), deletes itself once the panel has left it. The shortcuts of
/// all tools work in it. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExEditorFloater : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ExEditorFloater)

public:
    /// @param margin pixels left free around the panel. @param parent the window stays in front of
    /// this one; may be null.
    ExEditorFloater(ExEditor &editor, int margin, QWidget *parent);
    /// The panel is docked or, without a region, left without a parent; it is not destroyed.
    ~ExEditorFloater() override;

    /// The editor; null once it is destroyed.
    [[nodiscard]] ExEditor *editor() const;
    /// Puts the panel, which may be null, into the window, under this title. Titles that it gets
    /// later are taken over.
    void setContent(QWidget *widget, const QString &title);

public Q_SLOTS:
    /// Puts the panel back in its region; without one it is closed.
    void dock();

protected:
    void closeEvent(QCloseEvent *event) override;
    void childEvent(QChildEvent *event) override;

private:
    [[nodiscard]] bool isInUse() const;
    void release();

    QPointer<ExEditor> m_editor;
    /// The panel, for as long as it is a child of the window.
    QObject *m_content = nullptr;
    QVBoxLayout *m_layout;
    bool m_isEnding = false;
};
