#include "client/panels/StudyTree.h"

#include "client/layout/ViewerArea.h"
#include "client/loading/EntryTexts.h"
#include "client/panels/SearchText.h"
#include "client/panels/StudyDelegate.h"
#include "platform/dicom/ExDicomUtilities.h"
#include "platform/toolkit/QxStyleFactory.h"

#include <QMimeData>
#include <QPainter>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace {

using Zel::DicomDirectoryEntry;

constexpr int leastThumbnail = 16;
/// So many rows are not seen at once, nor on the way to and fro.
constexpr std::size_t mostPictures = 512;

QString uidOf(const QTreeWidgetItem &item)
{
    return item.data(0, StudyDelegate::UidRole).toString();
}

bool isLoadable(const DicomDirectoryEntry &entry)
{
    return entry.isSeries() || entry.isStoredVolume();
}

/// A series of one volume is opened as such: its volume need not be listed as well.
bool isWorthListing(const DicomDirectoryEntry &entry)
{
    return !entry.isStoredVolume() || entry.parent()->children().size() > 1;
}

QString secondLine(const DicomDirectoryEntry &entry)
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

/// Adds what can be opened of a row: a series without its volumes, of others what is shown of them.
void addUids(const QTreeWidgetItem &item, QStringList &uids)
{
    if (!uidOf(item).isEmpty()) {
        uids += uidOf(item);
        return;
    }
    for (int i = 0; i < item.childCount(); ++i) {
        if (!item.child(i)->isHidden()) {
            addUids(*item.child(i), uids);
        }
    }
}

/// What an entry says, to be searched.
QString searchedText(const DicomDirectoryEntry &entry)
{
    using Attribute = DicomDirectoryEntry::Attribute;
    QStringList texts{EntryTexts::title(entry)};
    for (const Attribute attribute :
        {Attribute::PatientName, Attribute::PatientId, Attribute::PatientBirthDate,
            Attribute::StudyId, Attribute::StudyDate, Attribute::StudyDescription,
            Attribute::AccessionNumber, Attribute::SeriesNumber, Attribute::SeriesDate,
            Attribute::SeriesDescription, Attribute::Modality, Attribute::BodyPart}) {
        texts += QString::fromStdString(entry.text(attribute));
    }
    texts += QString::fromStdString(ExDicomUtilities::displayDate(entry.patientBirthDate()));
    return SearchText::folded(texts.join(u'\n'));
}

} // namespace

/// A row and what it stands for.
class StudyTree::Item final : public QTreeWidgetItem
{
public:
    Item(QTreeWidgetItem &parent, const McHandle<Entry> &shown)
        : QTreeWidgetItem(&parent, {EntryTexts::title(*shown)})
        , entry(shown)
        , searched(searchedText(*shown))
    {
        setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        setData(0, StudyDelegate::IsImageRole, shown->isImage());
        setToolTip(0, toolTipText());
        if (isLoadable(*shown)) {
            showSeries();
        }
    }

    const McHandle<Entry> entry;
    const QString searched;

private:
    void showSeries()
    {
        setText(0, text(0) % QLatin1Char('\n') % secondLine(*entry));
        setData(0, StudyDelegate::IsSeriesRole, true);
        setData(0, StudyDelegate::ModalityRole, QString::fromStdString(entry->modality()));
        const QString mark = entry->isComplete() ? QString() : tr("incomplete");
        setData(0, StudyDelegate::MarkRole, mark);
        setData(0, Qt::AccessibleTextRole, QString(text(0) % u'\n' % mark));
        if (entry->isImage()) {
            setFlags(flags() | Qt::ItemIsDragEnabled);
            setData(0, StudyDelegate::UidRole, QString::fromStdString(entry->uid()));
        }
    }

    [[nodiscard]] QString toolTipText() const
    {
        QString details = EntryTexts::details(*entry);
        if (!isLoadable(*entry)) {
            return details;
        }
        const QString refused = refusal(*entry);
        const QString advice = refused.isEmpty()
            ? tr("Double-click to open in all viewers, or drag to one viewer.")
            : refused;
        return details % QLatin1String("\n\n") % advice;
    }
};

StudyTree::StudyTree(QWidget *parent)
    : QTreeWidget(parent)
{
    constexpr int firstThumbnail = 48;
    setHeaderHidden(true);
    setItemDelegate(new StudyDelegate(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setIndentation(12);
    setIconSize({firstThumbnail, firstThumbnail});
    setAccessibleName(tr("Studies"));
    connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem *item) {
        if (!uidOf(*item).isEmpty()) {
            Q_EMIT openRequested(uidOf(*item));
        }
    });
}

StudyTree::~StudyTree() = default;

void StudyTree::setPatients(const McDArray<McHandle<Entry>> &patients)
{
    clear();
    m_openable.clear();
    m_pictured.clear();
    for (const auto &patient : patients) {
        addEntry(*invisibleRootItem(), patient);
    }
    expandAll();
    applyFilter();
}

void StudyTree::addEntry(QTreeWidgetItem &parent, const McHandle<Entry> &entry)
{
    if (!isWorthListing(*entry)) {
        return;
    }
    auto *const item = new Item(parent, entry);
    if (!uidOf(*item).isEmpty()) {
        m_openable.insert(uidOf(*item), item);
    }
    for (const auto &child : entry->children()) {
        addEntry(*item, child);
    }
}

QString StudyTree::refusal(const Entry &entry)
{
    if (entry.isImage()) {
        return {};
    }
    return entry.isPresentationState()
        ? tr("A presentation state tells how images are shown; it cannot be opened by itself.")
        : tr("Cannot be opened: there are no images in it that could be shown.");
}

void StudyTree::setEmptyText(const QString &text)
{
    m_emptyText = text;
    viewport()->update();
}

void StudyTree::setFilter(const QString &text)
{
    if (text != m_filter) {
        m_filter = text;
        applyFilter();
    }
}

void StudyTree::applyFilter()
{
    const QStringList words = SearchText::words(m_filter);
    setUpdatesEnabled(false);
    m_isNothingFound = !showFound(*invisibleRootItem(), words) && topLevelItemCount() > 0;
    setUpdatesEnabled(true);
    if (currentItem() != nullptr && !currentItem()->isHidden()) {
        scrollToItem(currentItem());
    }
}

bool StudyTree::showFound(QTreeWidgetItem &parent, const QStringList &words)
{
    bool anyFound = false;
    for (int i = 0; i < parent.childCount(); ++i) {
        auto &item = static_cast<Item &>(*parent.child(i));
        // What is above has been looked through already.
        const QStringList left = SearchText::missing(item.searched, words);
        const bool isFound = left.isEmpty() || showFound(item, left);
        if (left.isEmpty()) {
            showAll(item);
        }
        if (item.isHidden() == isFound) {
            item.setHidden(!isFound);
        }
        anyFound = anyFound || isFound;
    }
    return anyFound;
}

void StudyTree::showAll(QTreeWidgetItem &parent)
{
    for (int i = 0; i < parent.childCount(); ++i) {
        if (parent.child(i)->isHidden()) {
            parent.child(i)->setHidden(false);
        }
        showAll(*parent.child(i));
    }
}

void StudyTree::setThumbnailSize(int pixels)
{
    const int side = qMax(pixels, leastThumbnail);
    if (side == thumbnailSize()) {
        return;
    }
    setIconSize({side, side});
    for (const QString &uid : m_pictured) {
        for (QTreeWidgetItem *item : m_openable.values(uid)) {
            item->setIcon(0, {});
        }
    }
    m_pictured.clear();
    scheduleDelayedItemsLayout();
}

void StudyTree::setThumbnail(const QString &uid, const QImage &picture)
{
    if (!m_openable.contains(uid)) {
        return;
    }
    // All of one width, so that the texts beside them are in line.
    const int side = qMax(picture.width(), picture.height());
    QPixmap square(side, side);
    square.fill(Qt::black);
    QPainter(&square).drawImage(
        (side - picture.width()) / 2, (side - picture.height()) / 2, picture);
    QIcon icon(square);
    icon.addPixmap(square, QIcon::Selected); // Not tinted: it is an image.
    for (QTreeWidgetItem *item : m_openable.values(uid)) {
        item->setIcon(0, icon);
    }
    m_pictured.push_back(uid);
    if (m_pictured.size() > mostPictures) {
        for (QTreeWidgetItem *item : m_openable.values(m_pictured.front())) {
            item->setIcon(0, {});
        }
        m_pictured.pop_front();
    }
}

void StudyTree::markShown(const QString &uid)
{
    const auto setBold = [this](const QString &marked, bool isBold) {
        for (QTreeWidgetItem *item : m_openable.values(marked)) {
            QFont font = item->font(0);
            font.setBold(isBold);
            item->setData(0, Qt::FontRole, isBold ? QVariant(font) : QVariant());
        }
    };
    setBold(m_shownUid, false);
    m_shownUid = uid;
    setBold(uid, true);
    // What the user has chosen several of is being worked with.
    QTreeWidgetItem *const shown = m_openable.value(uid);
    if (shown != nullptr && selectedItems().size() <= 1) {
        setCurrentItem(shown);
    }
}

QList<QTreeWidgetItem *> StudyTree::selectedRows() const
{
    QList<QTreeWidgetItem *> found;
    constexpr auto selectedAndSeen
        = QTreeWidgetItemIterator::Selected | QTreeWidgetItemIterator::NotHidden;
    for (QTreeWidgetItemIterator each(const_cast<StudyTree *>(this), selectedAndSeen);
         *each != nullptr; ++each) {
        found += *each;
    }
    return found;
}

std::vector<McHandle<StudyTree::Entry>> StudyTree::selectedEntries() const
{
    std::vector<McHandle<Entry>> found;
    for (const QTreeWidgetItem *item : selectedRows()) {
        found.push_back(static_cast<const Item *>(item)->entry);
    }
    return found;
}

QStringList StudyTree::selectedUids() const
{
    QStringList uids;
    for (const QTreeWidgetItem *item : selectedRows()) {
        addUids(*item, uids);
    }
    uids.removeDuplicates();
    return uids;
}

std::vector<McHandle<StudyTree::Entry>> StudyTree::entriesWithoutThumbnail() const
{
    std::vector<McHandle<Entry>> found;
    const int bottom = viewport()->height();
    for (QTreeWidgetItem *item = itemAt(0, 0);
         item != nullptr && visualItemRect(item).top() < bottom; item = itemBelow(item)) {
        if (!uidOf(*item).isEmpty() && item->icon(0).isNull()) {
            found.push_back(static_cast<Item *>(item)->entry);
        }
    }
    return found;
}

QMimeData *StudyTree::mimeData(const QList<QTreeWidgetItem *> &items) const
{
    auto *const dragged = new QMimeData;
    const auto first = std::find_if(items.begin(), items.end(),
        [](const QTreeWidgetItem *item) { return !uidOf(*item).isEmpty(); });
    if (first != items.end()) {
        dragged->setData(ViewerArea::seriesMimeType, uidOf(**first).toUtf8());
    }
    return dragged;
}

void StudyTree::paintEvent(QPaintEvent *event)
{
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() > 0 && !m_isNothingFound) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
        Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
        m_isNothingFound
            ? tr("Nothing here holds “%1”. Press Escape in the search field to see everything.")
                  .arg(m_filter)
            : m_emptyText);
}
