#pragma once

#include "client/app/Workstation.h"

#include <QObject>
#include <QPointer>

#include <memory>

class Desktop;
class ExMonitorWidget;
class FocusOrder;
class PanelEditors;
class PanelPlaces;
class SampleMaker;
class StatusLine;
class StudyPanel;
class ToolBars;
class ViewerArea;

/// The user's work at the workstation: opens studies, tells in the status line how far that is and
/// what went wrong, and keeps the windows in which it is shown. Needs the WorkstationApplication.
/// GUI thread only.
class WorkSession final : public QObject
{
    Q_OBJECT

public:
    /// Makes the windows, which are not shown yet.
    WorkSession();
    ~WorkSession() override;

    [[nodiscard]] Workstation &workstation() { return *m_workstation; }
    [[nodiscard]] Desktop &desktop() { return *m_desktop; }
    [[nodiscard]] PanelPlaces &panels() { return *m_panels; }
    /// Opens folders or files; the largest series found is shown in all viewers. What is open stays
    /// when there are no images. A sample study that is still being made is given up.
    void open(const QStringList &paths);
    /// Opens series or volumes that were chosen together: one in all viewers, of several each in a
    /// viewer of its own as far as there are viewers. Asks the user once for all of them, if at
    /// all.
    void openSelection(const QStringList &uids);
    void closeSeries(const QStringList &uids);
    /// Opens the sample study, which is made first when it is not there yet.
    void openSample();
    /// Something else is to be seen, or nothing: a sample study that is still being made is not
    /// opened.
    void giveUpSample();
    /// Lets the user choose a folder and opens it.
    void askForFolder();
    void showAbout();
    /// Shows a text in the status line for a while.
    void showMessage(const QString &text);
    /// What the user does by closing a window.
    void quit();
    /// Whether nothing is under way and everything is shown in its final state.
    [[nodiscard]] bool isSettled() const;
    /// On the screen of the active viewer, by the layout's name. @return false for an unknown one.
    bool setLayoutByName(const QString &name);
    /// What went wrong with the last open(), for the user; empty when nothing did.
    [[nodiscard]] const QString &openProblem() const { return m_openProblem; }

Q_SIGNALS:
    /// open() or openSample() has failed, or has found the studies and is showing them.
    void opened();

private:
    void connectSession();
    void connectDesktop();
    void buildWindow(ExMonitorWidget &window);
    void setAreas(const QList<ViewerArea *> &areas);
    void openDropped(const QString &uid, QWidget *target);
    void showFound();
    /// Why a scan that has found no images has not.
    [[nodiscard]] static QString emptyText(const DicomScanner::Result &result);
    void tellNothingFound(const DicomScanner::Result &result);
    void showBusy(bool busy);
    void sampleFinished(const QString &problem);
    void cancel();
    void setProblem(const QString &problem);
    void clearFound();
    /// What the list of studies tells while it is empty.
    void setEmptyText(const QString &text);
    void updateTitle();

    StatusLine *m_status; ///< of the window with the viewers
    SampleMaker *m_sample = nullptr; ///< while it works
    QString m_openProblem;
    std::unique_ptr<Desktop> m_desktop;
    std::unique_ptr<Workstation> m_workstation;
    std::unique_ptr<ToolBars> m_toolBars;
    std::unique_ptr<PanelEditors> m_editors;
    std::unique_ptr<PanelPlaces> m_panels;
    QPointer<StudyPanel> m_studies; ///< null when the user has no right to it
    std::unique_ptr<FocusOrder> m_focusOrder;
    McHandle<ExNotifiable> m_activeWatch;
};
