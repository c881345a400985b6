#include "client/editors/PanelPlaces.h"

#include "client/desktop/Desktop.h"
#include "client/desktop/PlacementRecords.h"
#include "client/editors/PanelEditors.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"
#include "framework/monitors/ExMonitorManager.h"
#include "platform/util/McLogFile.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QWindow>

#include <algorithm>

namespace {

constexpr int writeMilliseconds = 500;

const QString &studies()
{
    static const QString name = QString::fromLatin1(PanelEditors::studiesName);
    return name;
}

} // namespace

PanelPlaces::PanelPlaces(Desktop &desktop)
    : m_desktop(desktop)
    , m_part(*this)
{
    m_write.setSingleShot(true);
    m_write.setInterval(writeMilliseconds);
    connect(&m_write, &QTimer::timeout, this, &PanelPlaces::followWindows);
    connect(&m_write, &QTimer::timeout, this, &PanelPlaces::write);
    connect(&desktop, &Desktop::areasChanged, this, &PanelPlaces::pagesChanged);
    connect(&desktop, &Desktop::arranged, this, &PanelPlaces::arranged);
    connect(&desktop, &Desktop::shown, this, &PanelPlaces::bringForward);
    follow(desktop.studiesRegion());
}

PanelPlaces::~PanelPlaces()
{
    write();
    for (ExEditorRegion *region : regions()) {
        region->disconnect(this);
    }
}

void PanelPlaces::follow(ExEditorRegion &region)
{
    connect(&region, &ExEditorRegion::editorAdded, this, &PanelPlaces::noteChange);
    connect(&region, &ExEditorRegion::editorRemoved, this, &PanelPlaces::noteChange);
    connect(&region, &ExEditorRegion::editorActivated, this, &PanelPlaces::noteChange);
}

/// A panel that begins to float leaves its tabs first, so there has just been a change.
void PanelPlaces::followWindows()
{
    for (const ExEditor *editor : PanelEditors::living()) {
        if (QWidget *const window = editor->floater()) {
            window->installEventFilter(this); // The second time in place of the first.
        }
    }
}

bool PanelPlaces::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
        m_write.start();
    }
    return QObject::eventFilter(watched, event);
}

void PanelPlaces::noteChange()
{
    if (!m_isMoving) {
        m_write.start();
        Q_EMIT changed();
    }
}

void PanelPlaces::write()
{
    // Until there are all its pages, the layout that is kept is better than what is shown.
    if (m_desktop.isRemembering() && m_numMonitors > 0 && m_awaiting.isEmpty()) {
        PlacementRecords::writePanels(m_numMonitors, QString::fromUtf8(layout()));
    }
}

QList<ExEditorRegion *> PanelPlaces::regions() const
{
    QList<ExEditorRegion *> all{&m_desktop.studiesRegion()};
    for (const ViewerPage *page : m_pages) {
        for (int i = 0; page != nullptr && i < ViewerPage::numPlaces; ++i) {
            all.append(&page->region(static_cast<ViewerPage::Place>(i)));
        }
    }
    return all;
}

void PanelPlaces::pagesChanged()
{
    const QList<QPointer<ViewerPage>> before = m_pages;
    const QList<ViewerPage *> pages = m_desktop.pages();
    m_pages = {pages.begin(), pages.end()};
    for (ViewerPage *page : pages) {
        if (!before.contains(page)) {
            connect(page, &ViewerPage::extentsChanged, this, &PanelPlaces::noteChange);
            for (int i = 0; i < ViewerPage::numPlaces; ++i) {
                follow(page->region(static_cast<ViewerPage::Place>(i)));
            }
        }
    }
    for (ViewerPage *page : before) {
        if (page != nullptr && !m_pages.contains(page)) {
            leave(*page);
        }
    }
}

void PanelPlaces::arranged()
{
    const int numMonitors = ExMonitorManager::instance().numMonitors();
    if (numMonitors != m_numMonitors) {
        const bool isFirst = m_numMonitors == 0;
        m_numMonitors = numMonitors;
        m_awaiting.clear();
        const QString record = PlacementRecords::readPanels(numMonitors);
        if (!record.isEmpty()) {
            setLayout(record.toUtf8());
        } else if (isFirst) {
            reset();
        }
    } else if (!m_awaiting.isEmpty()) {
        setLayout(QByteArray(m_awaiting));
    }
    placeStudies();
    noteChange();
}

/// Windows that came up before the one they belong to would stay behind it.
void PanelPlaces::bringForward()
{
    for (const ExEditor *editor : PanelEditors::living()) {
        QWidget *const window = editor->floater();
        if (window != nullptr && window->parentWidget() != nullptr) {
            window->hide();
            window->windowHandle()->setTransientParent(
                window->parentWidget()->window()->windowHandle());
            window->show();
        }
    }
}

void PanelPlaces::leave(const ViewerPage &page)
{
    if (m_pages.isEmpty()) {
        return;
    }
    for (int i = 0; i < ViewerPage::numPlaces; ++i) {
        const auto place = static_cast<ViewerPage::Place>(i);
        moveAll(page.region(place), m_pages.constFirst()->region(place));
    }
}

void PanelPlaces::moveAll(const ExEditorRegion &from, ExEditorRegion &to)
{
    for (ExEditor *editor : PanelEditors::living()) {
        if (editor->editorRegion() == &from) {
            moveTo(*editor, to, std::clamp(editor->subRegionIndex(), 0, to.subRegionCount() - 1));
        }
    }
}

/// As it is: docked, floating or closed.
void PanelPlaces::moveTo(ExEditor &editor, ExEditorRegion &region, int subRegion)
{
    const bool isClosed = editor.isDisabled() && editor.editorRegion() != nullptr;
    const bool isFloating = editor.isFloating();
    region.addEditor(&editor, subRegion);
    if (isClosed) {
        region.closeEditor(&editor);
    } else if (isFloating) {
        editor.show(true);
    }
}

/// To where the contents have been placed. A panel that floats stays where the user put it, unless
/// the studies' own window would be empty without it.
void PanelPlaces::placeStudies()
{
    ViewerPage *const page = m_desktop.studiesPage();
    const bool isMoved = m_haveStudiesStood && m_studiesPage != page;
    noteStudiesPage(page);
    ExEditorRegion &own = m_desktop.studiesRegion();
    ExEditor *const editor = PanelEditors::editor(studies());
    if (page != nullptr) {
        ExEditorRegion &left = page->region(ViewerPage::Left);
        moveAll(own, left);
        const bool isBeside = editor != nullptr && !editor->isDisabled() && !editor->isFloating();
        if (isMoved && isBeside && editor->editorRegion() != &left) {
            moveTo(*editor, left, 0);
            editor->show(false);
        }
        return;
    }
    const QList<ExEditor *> living = PanelEditors::living();
    const bool isEmpty = std::none_of(living.begin(), living.end(),
        [&own](const ExEditor *each) { return each->editorRegion() == &own; });
    if (editor != nullptr && (isMoved || isEmpty) && editor->editorRegion() != &own) {
        own.addEditor(editor, 0);
        own.activateEditor(editor, 0);
    }
}

void PanelPlaces::noteStudiesPage(ViewerPage *page)
{
    m_studiesPage = page;
    m_haveStudiesStood = true;
}

/// The page that they are docked in; null for their own window. While they are docked nowhere, the
/// page where they belong.
ViewerPage *PanelPlaces::pageOfStudies() const
{
    const ExEditor *const editor = PanelEditors::livingEditor(studies());
    if (editor == nullptr || editor->editorContainer() == nullptr || editor->isFloating()) {
        return m_desktop.studiesPage();
    }
    const auto found
        = std::find_if(m_pages.begin(), m_pages.end(), [editor](const ViewerPage *page) {
              return page->placeOf(editor->editorRegion()).has_value();
          });
    return found == m_pages.end() ? nullptr : found->data();
}

bool PanelPlaces::isSeen(const QString &name) const
{
    const ExEditor *const editor = PanelEditors::livingEditor(name);
    if (editor == nullptr || editor->isFloating()) {
        return editor != nullptr;
    }
    const ExEditorContainer *const tabs = editor->editorContainer();
    if (tabs == nullptr || tabs->currentEditor() != editor) {
        return false;
    }
    return std::none_of(m_pages.begin(), m_pages.end(), [editor](const ViewerPage *page) {
        const auto place = page == nullptr ? std::nullopt : page->placeOf(editor->editorRegion());
        return place && page->extent(*place).isCollapsed;
    });
}

void PanelPlaces::show(const QString &name)
{
    ExEditor *const editor = PanelEditors::editor(name);
    if (editor == nullptr || m_pages.isEmpty()) {
        return;
    }
    ExEditorRegion *const region = editor->editorRegion();
    if (editor->isFloating()) {
        editor->floater()->raise();
        editor->floater()->activateWindow();
    } else if (region == nullptr) {
        const PanelEditors::Home home = PanelEditors::homeOf(name);
        moveTo(*editor, m_pages.constFirst()->region(home.place), home.subRegion);
        editor->show(false);
    } else if (editor->isDisabled()) {
        region->showEditor(editor);
    } else {
        editor->show(false);
    }
    for (ViewerPage *page : m_pages) {
        if (const auto place = page->placeOf(editor->editorRegion())) {
            page->setExtent(*place, {page->extent(*place).pixels, false});
        }
    }
    noteChange();
}

void PanelPlaces::close(const QString &name)
{
    ExEditor *const editor = PanelEditors::livingEditor(name);
    if (editor == nullptr) {
        return;
    }
    if (ExEditorRegion *const region = editor->editorRegion()) {
        region->closeEditor(editor);
    } else {
        editor->dockFloater(true);
    }
    noteChange();
}

void PanelPlaces::clear()
{
    for (ExEditor *editor : PanelEditors::living()) {
        editor->reset();
    }
}

void PanelPlaces::reset()
{
    {
        const QScopedValueRollback moving(m_isMoving, true);
        clear();
        m_awaiting.clear();
        for (ViewerPage *page : m_pages) {
            for (int i = 0; i < ViewerPage::numPlaces; ++i) {
                const auto place = static_cast<ViewerPage::Place>(i);
                page->setExtent(place, ViewerPage::usualExtent(place));
            }
        }
        ViewerPage *const page = m_desktop.studiesPage();
        ExEditor *const editor = PanelEditors::editor(studies());
        if (editor != nullptr && page != nullptr) {
            moveTo(*editor, page->region(ViewerPage::Left), 0);
        }
        placeStudies();
    }
    noteChange();
}

QByteArray PanelPlaces::layout() const
{
    PanelRecord record;
    for (const ViewerPage *page : m_pages) {
        PanelRecord::Page kept;
        for (int i = 0; page != nullptr && i < ViewerPage::numPlaces; ++i) {
            const auto place = static_cast<ViewerPage::Place>(i);
            kept[place] = {page->region(place).saveLayout(), page->extent(place)};
        }
        record.pages.append(kept);
    }
    record.studies = m_desktop.studiesRegion().saveLayout();
    return record.toBytes();
}

bool PanelPlaces::setLayout(const QByteArray &layout)
{
    const std::optional<PanelRecord> record = PanelRecord::fromBytes(layout);
    bool isGood = record.has_value();
    if (isGood) {
        const QScopedValueRollback moving(m_isMoving, true);
        clear();
        isGood = restore(*record);
        m_awaiting = record->pages.size() > m_pages.size() ? layout : QByteArray();
        noteStudiesPage(pageOfStudies());
        placeStudies();
    }
    if (!isGood) {
        theLogInstance().warnf("The places of the panels cannot be read; they are as at first.\n");
        reset();
    }
    noteChange();
    return isGood;
}

/// Pages that there are not are made for a moment, so that none of their panels is lost.
bool PanelPlaces::restore(const PanelRecord &record)
{
    bool isGood = m_desktop.studiesRegion().restoreLayout(record.studies);
    for (qsizetype i = 0; i < record.pages.size() && isGood; ++i) {
        if (i < m_pages.size()) {
            isGood = restorePage(record.pages[i], *m_pages[i]);
        } else {
            ViewerPage missing;
            isGood = restorePage(record.pages[i], missing);
            leave(missing);
        }
    }
    return isGood;
}

bool PanelPlaces::restorePage(const PanelRecord::Page &record, ViewerPage &page)
{
    bool isGood = true;
    for (int i = 0; i < ViewerPage::numPlaces && isGood; ++i) {
        const auto place = static_cast<ViewerPage::Place>(i);
        page.setExtent(place, record[place].extent);
        isGood = page.region(place).restoreLayout(record[place].layout);
    }
    return isGood;
}
