#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

#include <QTreeWidget>

/// Patients, their studies and series. Series with images can be opened by a double click or Return
/// and dragged to a viewer; whatever holds no image is listed grey, with the reason.
class StudyTree final : public QTreeWidget
{
    Q_OBJECT

public:
    explicit StudyTree(QWidget *parent = nullptr);

    void setPatients(const McDArray<McHandle<Zel::DicomDirectoryEntry>> &patients);
    /// The text shown while the list is empty.
    void setEmptyText(const QString &text);
    /// Shows a small picture beside a series; unknown identifiers are ignored.
    void setThumbnail(const QString &uid, const QImage &picture);
    /// Marks the series that is shown in the active viewer; an empty or unknown identifier for
    /// none.
    void markShown(const QString &uid);

Q_SIGNALS:
    /// @param uid of a series or a stored volume.
    void openRequested(const QString &uid);

protected:
    QMimeData *mimeData(const QList<QTreeWidgetItem *> &items) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    void addEntry(QTreeWidgetItem &parent, const Zel::DicomDirectoryEntry &entry);

    QString m_emptyText;
};
