#include "client/panels/StudyTree.h"

#include "client/layout/ViewerArea.h"
#include "client/loading/EntryTexts.h"

#include <QMimeData>
#include <QPainter>
#include <QTreeWidgetItemIterator>

namespace {

constexpr int uidRole = Qt::UserRole;
constexpr int thumbnailSize = 48;

QString uidOf(const QTreeWidgetItem &item)
{
    return item.data(0, uidRole).toString();
}

/// A series of one volume is opened as such: its volume need not be listed as well.
bool isWorthListing(const Zel::DicomDirectoryEntry &entry)
{
    return !entry.isStoredVolume() || entry.parent()->children().size() > 1;
}

QString secondLine(const Zel::DicomDirectoryEntry &entry)
{
    if (!entry.isImage()) {
        return entry.remarks().isEmpty() ? StudyTree::tr("no images")
                                         : QString::fromStdString(entry.remarks().first());
    }
    const QString images = StudyTree::tr("images: %1").arg(entry.numImages());
    return entry.phases().size() > 1
        ? StudyTree::tr("%1, phases: %2").arg(images).arg(entry.phases().size())
        : images;
}

} // namespace

StudyTree::StudyTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setWordWrap(true);
    setIndentation(12);
    setIconSize({thumbnailSize, thumbnailSize});
    setUniformRowHeights(false);
    setTextElideMode(Qt::ElideRight);
    setAccessibleName(tr("Studies"));
    connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem *item) {
        if (!uidOf(*item).isEmpty()) {
            Q_EMIT openRequested(uidOf(*item));
        }
    });
}

void StudyTree::setPatients(const McDArray<McHandle<Zel::DicomDirectoryEntry>> &patients)
{
    clear();
    for (const auto &patient : patients) {
        addEntry(*invisibleRootItem(), *patient);
    }
    expandAll();
}

void StudyTree::addEntry(QTreeWidgetItem &parent, const Zel::DicomDirectoryEntry &entry)
{
    if (!isWorthListing(entry)) {
        return;
    }
    const bool canOpen = (entry.isSeries() || entry.isStoredVolume()) && entry.isImage();
    auto *const item = new QTreeWidgetItem(&parent, {EntryTexts::title(entry)});
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setToolTip(0,
        canOpen ? EntryTexts::details(entry) % QLatin1String("\n\n")
                % tr("Double-click to open in all viewers, or drag to one viewer.")
                : EntryTexts::details(entry));
    if (entry.isSeries() || entry.isStoredVolume()) {
        item->setText(0, item->text(0) % QLatin1Char('\n') % secondLine(entry));
    }
    if (canOpen) {
        item->setFlags(item->flags() | Qt::ItemIsDragEnabled);
        item->setData(0, uidRole, QString::fromStdString(entry.uid()));
    } else if (!entry.isImage()) {
        item->setForeground(0, palette().brush(QPalette::Disabled, QPalette::Text));
    }
    for (const auto &child : entry.children()) {
        addEntry(*item, *child);
    }
}

void StudyTree::setEmptyText(const QString &text)
{
    m_emptyText = text;
    viewport()->update();
}

void StudyTree::setThumbnail(const QString &uid, const QImage &picture)
{
    // All of one width, so that the texts beside them are in line.
    const int side = qMax(picture.width(), picture.height());
    QPixmap square(side, side);
    square.fill(Qt::black);
    QPainter(&square).drawImage(
        (side - picture.width()) / 2, (side - picture.height()) / 2, picture);
    for (QTreeWidgetItemIterator each(this); *each != nullptr; ++each) {
        if (uidOf(**each) == uid) {
            QIcon icon(square);
            icon.addPixmap(square, QIcon::Selected); // Not tinted: it is an image.
            (*each)->setIcon(0, icon);
        }
    }
}

void StudyTree::markShown(const QString &uid)
{
    for (QTreeWidgetItemIterator each(this); *each != nullptr; ++each) {
        QTreeWidgetItem &item = **each;
        const bool isShown = !uid.isEmpty() && uidOf(item) == uid;
        QFont font = item.font(0);
        if (font.bold() != isShown) {
            font.setBold(isShown);
            item.setFont(0, font);
        }
        if (isShown) {
            setCurrentItem(&item);
        }
    }
}

QMimeData *StudyTree::mimeData(const QList<QTreeWidgetItem *> &items) const
{
    auto *const dragged = new QMimeData;
    if (!items.isEmpty()) {
        dragged->setData(ViewerArea::seriesMimeType, uidOf(*items.first()).toUtf8());
    }
    return dragged;
}

void StudyTree::paintEvent(QPaintEvent *event)
{
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() > 0) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
        Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_emptyText);
}
