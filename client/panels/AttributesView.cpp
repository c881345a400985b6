#include "client/panels/AttributesView.h"

#include "client/panels/SearchField.h"
#include "client/panels/SearchText.h"
#include "client/panels/ViewKeys.h"
#include "client/panels/ViewMessage.h"
#include "platform/dicomio/DicomAttributes.h"
#include "platform/util/McGuard.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QPromise>
#include <QThreadPool>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>

namespace {

enum Column { Tag, Name, Vr, Value, numColumns };

/// A search that finds more is no help to anybody.
constexpr int mostFound = 1000;

QString oneLine(const std::string &text)
{
    return QString::fromStdString(text).simplified();
}

/// "PatientName" as "Patient Name".
QString spaced(const QString &name)
{
    QString result;
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool startsWord = i > 0 && name[i].isUpper()
            && (name[i - 1].isLower() || (i + 1 < name.size() && name[i + 1].isLower()));
        if (startsWord) {
            result += u' ';
        }
        result += name[i];
    }
    return result;
}

void appendLine(QString &text, const QTreeWidgetItem &item)
{
    QStringList cells;
    for (int column = 0; column < numColumns; ++column) {
        cells += item.text(column);
    }
    text += cells.join(u'\t') % u'\n';
}

} // namespace

/// An attribute in texts of the window.
struct AttributesView::Row
{
    explicit Row(const DicomAttribute &attribute)
        : cells(
            {QString::fromStdString(attribute.tag), spaced(QString::fromStdString(attribute.name)),
                QString::fromStdString(attribute.vr), oneLine(attribute.value)})
        , folded(SearchText::folded(cells.join(u'\n')))
        , children(attribute.children.begin(), attribute.children.end())
    { }

    /// Whether it, or something in it, holds all words.
    [[nodiscard]] bool leadsTo(const QStringList &words) const
    {
        return SearchText::holdsAll(folded, words)
            || std::any_of(children.begin(), children.end(),
                [&words](const Row &child) { return child.leadsTo(words); });
    }

    QStringList cells; ///< by column
    QString folded; ///< all cells, to be searched
    std::vector<Row> children;
};

struct AttributesView::Header
{
    explicit Header(const DicomAttributes &read)
        : rows(read.attributes.begin(), read.attributes.end())
        , error(QString::fromStdString(read.error))
    { }

    std::vector<Row> rows;
    QString error;
};

/// The rows belong to the header that is shown.
struct AttributesView::Item : QTreeWidgetItem
{
    Item(QTreeWidgetItem &parent, const Row &shown)
        : QTreeWidgetItem(&parent, shown.cells)
        , row(shown)
    {
        for (int column = 0; column < numColumns; ++column) {
            setToolTip(column, shown.cells[Name] % u'\n' % shown.cells[Value]);
        }
        if (!shown.children.empty()) {
            setChildIndicatorPolicy(ShowIndicator);
        }
    }

    const Row &row;
};

AttributesView::AttributesView(QWidget *parent)
    : QWidget(parent)
    , m_tree(new QTreeWidget)
    , m_message(new ViewMessage(*m_tree))
{
    setObjectName(QStringLiteral("Attributes"));
    m_search = new SearchField(tr("Search attributes"), *m_tree);
    build();
    connect(m_search, &QLineEdit::textChanged, this, &AttributesView::showRows);
    connect(m_tree, &QTreeWidget::itemExpanded, this, [](QTreeWidgetItem *item) { expand(*item); });
    connect(m_tree, &QWidget::customContextMenuRequested, this, &AttributesView::showMenu);
    connect(&m_watcher, &QFutureWatcherBase::finished, this, &AttributesView::headerRead);
    showRows();
}

AttributesView::~AttributesView() = default;

void AttributesView::build()
{
    m_tree->setColumnCount(numColumns);
    m_tree->setHeaderLabels({tr("Tag"), tr("Name"), tr("VR"), tr("Value")});
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setUniformRowHeights(true);
    m_tree->setIndentation(16);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->setAccessibleName(tr("DICOM attributes"));
    const QFontMetrics metrics(m_tree->font());
    m_tree->setColumnWidth(Tag, metrics.horizontalAdvance(QStringLiteral("(0000,0000)")) + 48);
    m_tree->setColumnWidth(Name, metrics.averageCharWidth() * 26);
    m_tree->setColumnWidth(Vr, metrics.horizontalAdvance(QStringLiteral("WW")) + 16);
    auto *const keys = new ViewKeys(*m_tree);
    keys->add(QKeySequence::Copy, [this] { copy(); });
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_search);
    layout->addWidget(m_tree);
}

void AttributesView::showFile(const McFilename &file)
{
    if (file == m_file) {
        return;
    }
    m_file = file;
    m_header.reset();
    if (file.empty()) {
        m_watcher.setFuture({});
        showRows();
        return;
    }
    // A promise of its own for each file: what an earlier one still reads is not waited for.
    auto promise = std::make_shared<QPromise<std::shared_ptr<const Header>>>();
    promise->start();
    m_watcher.setFuture(promise->future());
    showRows();
    QThreadPool::globalInstance()->start([promise, file] {
        DicomAttributes read;
        const std::string problem = McGuard::run([&] { read = DicomAttributes::read(file); });
        read.error += problem;
        promise->addResult(std::make_shared<const Header>(read));
        promise->finish();
    });
}

void AttributesView::headerRead()
{
    if (m_watcher.future().resultCount() > 0) {
        m_header = m_watcher.result();
        showRows();
    }
}

void AttributesView::showRows()
{
    m_tree->clear();
    m_shown = 0;
    if (!m_header) {
        m_message->setMessage(m_file.empty()
                ? tr("Select a series to see the attributes of its first image.")
                : tr("Reading…"));
        return;
    }
    const QStringList words = SearchText::words(m_search->text());
    addFound(*m_tree->invisibleRootItem(), m_header->rows, words);
    if (m_shown >= mostFound) {
        auto *const more
            = new QTreeWidgetItem(m_tree, {tr("There is more: search for more words.")});
        more->setFirstColumnSpanned(true);
        more->setFlags(Qt::NoItemFlags);
    }
    if (m_shown > 0) {
        m_message->setMessage({});
    } else {
        m_message->setMessage(words.isEmpty()
                ? m_header->error
                : tr("No attribute holds “%1”.").arg(m_search->text()));
    }
}

void AttributesView::addFound(
    QTreeWidgetItem &parent, const std::vector<Row> &rows, const QStringList &words)
{
    for (const Row &row : rows) {
        if (m_shown >= mostFound) {
            return;
        }
        if (!row.leadsTo(words)) {
            continue;
        }
        ++m_shown;
        auto *const item = new Item(parent, row);
        // What is in a row that is found itself comes when that is expanded.
        if (!SearchText::holdsAll(row.folded, words)) {
            addFound(*item, row.children, words);
            // Where there was no room for them, expanding would fetch those not searched for, too.
            item->setExpanded(item->childCount() > 0);
        }
    }
}

void AttributesView::expand(QTreeWidgetItem &item)
{
    // Files of many frames have a hundred thousand rows: they are made when they are seen.
    if (item.childCount() == 0) {
        for (const Row &row : static_cast<Item &>(item).row.children) {
            new Item(item, row);
        }
    }
}

QString AttributesView::text() const
{
    QString lines;
    const bool takesAll = m_tree->selectedItems().isEmpty();
    for (QTreeWidgetItemIterator each(m_tree); *each != nullptr; ++each) {
        if (takesAll || (*each)->isSelected()) {
            appendLine(lines, **each);
        }
    }
    return lines;
}

void AttributesView::copy() const
{
    QApplication::clipboard()->setText(text());
}

void AttributesView::showMenu(const QPoint &position)
{
    QMenu menu(this);
    menu.addAction(m_tree->selectedItems().isEmpty() ? tr("&Copy all") : tr("&Copy"), this,
        &AttributesView::copy);
    menu.exec(m_tree->viewport()->mapToGlobal(position));
}
