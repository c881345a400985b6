#pragma once

#include "platform/dicom/DicomDirectoryEntry.h"
#include "platform/util/McDArray.h"
#include "platform/util/McHandle.h"

#include <QMultiHash>
#include <QTreeWidget>

#include <deque>
#include <vector>

/// Patients, their studies and series. Series with images can be opened by a double click or Return
/// and dragged to a viewer; whatever holds no image is listed grey, with the reason; what is
/// incomplete is marked. Fit for ten thousand series. GUI thread only.
class StudyTree final : public QTreeWidget
{
    Q_OBJECT

public:
    using Entry = Zel::DicomDirectoryEntry;

    explicit StudyTree(QWidget *parent = nullptr);
    ~StudyTree() override;

    void setPatients(const McDArray<McHandle<Entry>> &patients);
    /// The text shown while the list is empty.
    void setEmptyText(const QString &text);
    /// Shows only what holds all words, in itself or with what it belongs to, and that which it
    /// belongs to. Looks in names, identifiers, descriptions, modalities and dates, in any case and
    /// with or without accents. An empty text shows everything.
    void setFilter(const QString &text);
    /// Length of the longer side of pictures, device-independent pixels; at least 16. Takes the
    /// pictures away when that is a change.
    void setThumbnailSize(int pixels);
    [[nodiscard]] int thumbnailSize() const { return iconSize().width(); }
    /// Shows a small picture beside a series; unknown identifiers are ignored. Of a great many
    /// pictures those that came first go.
    void setThumbnail(const QString &uid, const QImage &picture);
    /// Marks the series that is shown in the active viewer; an empty or unknown identifier for
    /// none.
    void markShown(const QString &uid);

    /// What is selected and passes the filter, in the order of the list.
    [[nodiscard]] std::vector<McHandle<Entry>> selectedEntries() const;
    /// Identifiers of the series and volumes with images in selectedEntries() that pass the filter,
    /// each once.
    [[nodiscard]] QStringList selectedUids() const;
    /// Series with images (and volumes of one) that are seen now and have no picture.
    [[nodiscard]] std::vector<McHandle<Entry>> entriesWithoutThumbnail() const;
    /// Why an entry cannot be opened; empty for one that can.
    [[nodiscard]] static QString refusal(const Entry &entry);

Q_SIGNALS:
    /// @param uid of a series or a stored volume.
    void openRequested(const QString &uid);

protected:
    QMimeData *mimeData(const QList<QTreeWidgetItem *> &items) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    class Item;

    void addEntry(QTreeWidgetItem &parent, const McHandle<Entry> &entry);
    [[nodiscard]] QList<QTreeWidgetItem *> selectedRows() const;
    void applyFilter();
    bool showFound(QTreeWidgetItem &parent, const QStringList &words);
    void showAll(QTreeWidgetItem &parent);

    QString m_emptyText;
    QString m_filter;
    bool m_isNothingFound = false;
    QMultiHash<QString, QTreeWidgetItem *> m_openable; ///< by identifier
    QString m_shownUid;
    std::deque<QString> m_pictured; ///< in the order in which pictures came
};
