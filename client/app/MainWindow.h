#pragma once

#include "client/app/Workstation.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

class FocusOrder;
class ProblemsButton;
class ProgressLine;
class SampleMaker;
class StatusText;
class StudyTree;
class ThumbnailMaker;
class ToolBars;
class ViewerArea;

/// The workstation's main window: list of studies, viewers, menus, status line. Needs the
/// WorkstationApplication. GUI thread only.
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    [[nodiscard]] Workstation &workstation() { return *m_workstation; }
    /// Opens folders or files; the largest series found is shown in all viewers. What is open stays
    /// when there are no images.
    void open(const QStringList &paths);
    /// Opens the sample study, which is made first when it is not there yet.
    void openSample();
    /// Lets the user choose a folder and opens it.
    void askForFolder();
    void showAbout();
    /// Whether nothing is under way and everything is shown in its final state.
    [[nodiscard]] bool isSettled() const;
    /// By the layout's name. @return false for an unknown one.
    bool setLayoutByName(const QString &name);
    /// What went wrong with the last open(), for the user; empty when nothing did.
    [[nodiscard]] const QString &openProblem() const { return m_openProblem; }

Q_SIGNALS:
    /// open() or openSample() has failed, or has found the studies and is showing them.
    void opened();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildPanels();
    void connectSession();
    void showFound();
    /// Why a scan that has found no images has not.
    [[nodiscard]] static QString emptyText(const DicomScanner::Result &result);
    void tellNothingFound(const DicomScanner::Result &result);
    void startThumbnails();
    void showBusy(bool busy);
    void sampleFinished(const QString &problem);
    void cancel();
    void setProblem(const QString &problem);
    void clearFound();
    void markShownSeries();

    ViewerArea *m_area;
    StudyTree *m_tree;
    ProgressLine *m_progress;
    ProblemsButton *m_problems;
    StatusText *m_status;
    SampleMaker *m_sample = nullptr; ///< while it works
    ThumbnailMaker *m_thumbnails;
    QString m_openProblem;
    bool m_wantsThumbnails = false;
    std::unique_ptr<Workstation> m_workstation;
    std::unique_ptr<ToolBars> m_toolBars;
    std::unique_ptr<FocusOrder> m_focusOrder;
    McHandle<ExNotifiable> m_activeWatch;
};
