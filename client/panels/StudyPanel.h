#pragma once

#include "framework/notification/ExNotifiable.h"
#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McHandle.h"

#include <QWidget>

#include <memory>

class AttributesView;
class QAction;
class QPushButton;
class QToolButton;
class SearchField;
class StudySession;
class StudyThumbnails;
class StudyTree;

/// The studies that are open: list with search field and pictures, a button to open what is
/// selected, and the attributes of the selected series' first image. Follows the session and the
/// active viewer; opens and closes nothing itself. GUI thread only.
class StudyPanel final : public QWidget
{
    Q_OBJECT

public:
    /// @param session must outlive the panel.
    explicit StudyPanel(StudySession &session, QWidget *parent = nullptr);
    ~StudyPanel() override;

    [[nodiscard]] StudyTree &tree() const { return *m_tree; }
    /// What is said while no studies are open; an empty text for the panel's own.
    void setEmptyText(const QString &text);
    /// Shows or hides the attributes of the selected series' first image.
    void setAttributesShown(bool shown);
    /// Whether all pictures and attributes that are seen are there.
    [[nodiscard]] bool isSettled() const;

Q_SIGNALS:
    /// The user wants to see these series or volumes; never empty.
    void openRequested(const QStringList &uids);
    /// The user wants these series to be closed, those without images too; never empty.
    void closeRequested(const QStringList &uids);
    /// Folders or files were dropped on the panel; never empty.
    void pathsDropped(const QStringList &paths);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    using Entry = Zel::DicomDirectoryEntry;

    void build();
    void addActions();
    void connectList();
    void showSession();
    void openSelected();
    void openActivated(const QString &uid);
    void requestClose(unsigned level);
    void selectedChanged();
    void showAttributes();
    void showMenu(const QPoint &position);
    void markShown();

    StudySession &m_session;
    StudyTree *m_tree;
    SearchField *m_search;
    AttributesView *m_attributes;
    QPushButton *m_open;
    QToolButton *m_attributesButton;
    QAction *m_openAction;
    QAction *m_attributesAction;
    QAction *m_closeAction;
    QAction *m_closePatientAction;
    std::unique_ptr<StudyThumbnails> m_thumbnails;
    McHandle<ExNotifiable> m_watch;
};
