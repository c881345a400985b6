#pragma once

#include "client/loading/ThumbnailMaker.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QTimer>

class StudySession;
class StudyTree;

/// Has pictures made of the series that are seen in the study list, in the size that suits its
/// monitor; not while images are read that the user waits for. Owned by the panel. GUI thread only.
class StudyThumbnails final : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive it.
    StudyThumbnails(StudyTree &tree, StudySession &session);

    /// Whether all that are seen have a picture, as far as there can be one.
    [[nodiscard]] bool isSettled() const { return !m_timer.isActive() && !m_maker.isRunning(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followWindow();
    void adaptSize();
    void forget();
    void makeNext();

    StudyTree &m_tree;
    StudySession &m_session;
    ThumbnailMaker m_maker;
    QTimer m_timer;
    QSet<QString> m_tried; ///< asked for, and not made
    QPointer<QWidget> m_window;
};
