#include "client/panels/LogPanel.h"

#include "client/panels/LogModel.h"
#include "client/panels/PanelButton.h"
#include "client/panels/SearchField.h"
#include "client/panels/SearchText.h"
#include "client/panels/ViewKeys.h"
#include "client/panels/ViewMessage.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QFileInfo>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>

/// The lines that hold all words, of warnings only if wanted.
class LogFilter final : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setWanted(const QStringList &words, bool onlyWarnings)
    {
        m_words = words;
        m_onlyWarnings = onlyWarnings;
        invalidateFilter();
    }

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex &parent) const override
    {
        const QModelIndex index = sourceModel()->index(row, 0, parent);
        return (!m_onlyWarnings || index.data(LogModel::IsWarningRole).toBool())
            && SearchText::holdsAll(index.data(LogModel::FoldedRole).toString(), m_words);
    }

private:
    QStringList m_words;
    bool m_onlyWarnings = false;
};

LogPanel::LogPanel(QWidget *parent)
    : QWidget(parent)
    , m_model(new LogModel(this))
    , m_filter(new LogFilter(this))
    , m_table(new QTableView)
    , m_message(new ViewMessage(*m_table))
    , m_search(new SearchField(tr("Search log"), *m_table))
    , m_level(new QComboBox)
    , m_copy(new PanelButton(QStringLiteral("Copy"), QStringLiteral("copy"),
          tr("Copy the selected lines, or all shown (Ctrl+C)")))
    , m_folder(new PanelButton(QStringLiteral("ShowFile"), QStringLiteral("open-folder"), {}))
{
    constexpr int milliseconds = 250;
    setObjectName(QStringLiteral("Log"));
    setWindowTitle(tr("Log"));
    m_filter->setSourceModel(m_model);
    m_table->setModel(m_filter);
    m_timer.setInterval(milliseconds);
    build();
    connect(&m_timer, &QTimer::timeout, this, &LogPanel::updateLines);
    connect(m_search, &QLineEdit::textChanged, this, &LogPanel::filter);
    connect(m_level, &QComboBox::currentIndexChanged, this, &LogPanel::filter);
    connect(m_copy, &QToolButton::clicked, this, &LogPanel::copy);
    connect(m_folder, &QToolButton::clicked, this, &LogPanel::showFile);
    connect(m_table, &QWidget::customContextMenuRequested, this, &LogPanel::showMenu);
    auto *const keys = new ViewKeys(*m_table);
    keys->add(QKeySequence::Copy, [this] { copy(); });
    filter();
}

LogPanel::~LogPanel() = default;

void LogPanel::build()
{
    constexpr int space = 4;
    constexpr int rowHeight = 24;
    const QFontMetrics metrics(m_table->font());
    m_level->addItems({tr("All"), tr("Warnings")});
    m_level->setObjectName(QStringLiteral("Level"));
    m_level->setToolTip(tr("Which lines are shown"));
    m_level->setAccessibleName(tr("Which lines are shown"));
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->setColumnWidth(LogModel::Time,
        metrics.horizontalAdvance(QStringLiteral("0000-00-00 00:00:00.000")) + 4 * space);
    m_table->setColumnWidth(LogModel::Level, metrics.horizontalAdvance(tr("Warning")) + 4 * space);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setContextMenuPolicy(Qt::CustomContextMenu);
    m_table->setAccessibleName(tr("Log"));
    const QString file = QString::fromStdString(theLogInstance().fileName());
    m_folder->setEnabled(!file.isEmpty());
    m_folder->setToolTip(tr("Show the file in its folder") % u'\n' % file);
    m_folder->setAccessibleName(tr("Show the file in its folder"));
    auto *const bar = new QHBoxLayout;
    bar->setSpacing(space);
    bar->addWidget(m_search, 1);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_level, m_copy, m_folder}) {
        bar->addWidget(widget);
    }
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(space, space, space, space);
    layout->setSpacing(space);
    layout->addLayout(bar);
    layout->addWidget(m_table);
}

void LogPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    updateLines();
    m_table->scrollToBottom();
    m_timer.start();
}

void LogPanel::hideEvent(QHideEvent *event)
{
    m_timer.stop();
    QWidget::hideEvent(event);
}

void LogPanel::updateLines()
{
    // Whoever reads further up is not to be torn away.
    const QScrollBar &bar = *m_table->verticalScrollBar();
    const bool isAtEnd = bar.value() == bar.maximum();
    m_model->update();
    if (isAtEnd) {
        m_table->scrollToBottom();
    }
    const bool isEmpty = m_filter->rowCount() == 0;
    const QString text = m_model->rowCount() == 0
        ? tr("Nothing has been logged yet.")
        : tr("No line passes. Press Escape in the search field, or choose All, to see everything.");
    m_message->setMessage(isEmpty ? text : QString());
    m_copy->setEnabled(!isEmpty);
}

void LogPanel::filter()
{
    m_filter->setWanted(SearchText::words(m_search->text()), m_level->currentIndex() == 1);
    updateLines();
    m_table->scrollToBottom();
}

QString LogPanel::text() const
{
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    if (rows.isEmpty()) {
        for (int row = 0; row < m_filter->rowCount(); ++row) {
            rows += m_filter->index(row, 0);
        }
    }
    QString lines;
    for (const QModelIndex &row : rows) {
        lines += row.data().toString() % u'\t'
            % row.siblingAtColumn(LogModel::Level).data().toString() % u'\t'
            % row.data(Qt::ToolTipRole).toString() % u'\n';
    }
    return lines;
}

void LogPanel::copy() const
{
    QApplication::clipboard()->setText(text());
}

void LogPanel::showFile() const
{
    const QFileInfo file(QString::fromStdString(theLogInstance().fileName()));
    theLogInstance().flush();
    QDesktopServices::openUrl(QUrl::fromLocalFile(file.absolutePath()));
}

void LogPanel::showMenu(const QPoint &position)
{
    QMenu menu(this);
    menu.addAction(m_table->selectionModel()->hasSelection() ? tr("&Copy") : tr("&Copy all"), this,
        &LogPanel::copy);
    menu.exec(m_table->viewport()->mapToGlobal(position));
}
