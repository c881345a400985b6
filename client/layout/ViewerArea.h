#pragma once

#include <QStringList>
#include <QWidget>

class QMimeData;

/// The area of a window in which the viewers are: parent of their render widgets. Series can be
/// dropped on it. GUI thread only.
class ViewerArea final : public QWidget
{
    Q_OBJECT

public:
    /// The type of what can be dropped: the series instance UID in UTF-8.
    static const QString seriesMimeType;

    /// The folders and files of this computer in what is dragged; empty when there are none.
    [[nodiscard]] static QStringList paths(const QMimeData &dragged);

    explicit ViewerArea(QWidget *parent = nullptr);

Q_SIGNALS:
    void resized();
    /// A series was dropped. @param target the child on which it was dropped, or null.
    void seriesDropped(const QString &uid, QWidget *target);
    /// Folders or files were dropped.
    void pathsDropped(const QStringList &paths);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};
