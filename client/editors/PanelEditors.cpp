#include "client/editors/PanelEditors.h"

#include "client/app/WorkSession.h"
#include "client/application/WorkstationApplication.h"
#include "client/panels/LinksPanel.h"
#include "client/panels/LogPanel.h"
#include "client/panels/MeasurementsPanel.h"
#include "client/panels/PropertiesPanel.h"
#include "client/panels/StudyPanel.h"
#include "client/viewers/SliceViewer.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorFloater.h"
#include "framework/editors/ExEditorRegion.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

PanelEditors *PanelEditors::s_instance = nullptr;

namespace {

/// An editor that owns its panel.
class PanelEditor final : public ExEditor
{
public:
    PanelEditor(std::unique_ptr<QWidget> panel, const char *name)
        : ExEditor(panel.get(), name)
        , m_panel(panel.release())
    {
        setSupportedFlag(true);
    }
    ~PanelEditor() override { delete m_panel; }

private:
    QPointer<QWidget> m_panel;
};

std::unique_ptr<QWidget> makeStudies(WorkSession &session)
{
    auto panel = std::make_unique<StudyPanel>(session.workstation().session());
    QObject::connect(
        panel.get(), &StudyPanel::openRequested, &session, &WorkSession::openSelection);
    QObject::connect(panel.get(), &StudyPanel::closeRequested, &session, &WorkSession::closeSeries);
    QObject::connect(panel.get(), &StudyPanel::pathsDropped, &session, &WorkSession::open);
    return panel;
}

std::unique_ptr<QWidget> makeLinks(WorkSession & /*session*/)
{
    return std::make_unique<LinksPanel>();
}

std::unique_ptr<QWidget> makeMeasurements(WorkSession &session)
{
    Workstation &workstation = session.workstation();
    auto panel
        = std::make_unique<MeasurementsPanel>(workstation.measurements(), workstation.session());
    QObject::connect(panel.get(), &MeasurementsPanel::seriesWanted, &session,
        [&workstation](const QString &uid, SliceViewer *viewer) {
            workstation.openIn(*viewer, uid.toStdString());
        });
    return panel;
}

std::unique_ptr<QWidget> makeProperties(WorkSession & /*session*/)
{
    return std::make_unique<PropertiesPanel>(
        QList<QRegularExpression>(), PropertiesPanel::internalSettings());
}

std::unique_ptr<QWidget> makeLog(WorkSession & /*session*/)
{
    return std::make_unique<LogPanel>();
}

struct PanelRow
{
    const char *name = nullptr;
    std::unique_ptr<QWidget> (*make)(WorkSession &session) = nullptr;
    PanelEditors::Home home;
};

constexpr std::array<PanelRow, 5> panels{{
    {PanelEditors::studiesName, &makeStudies, {ViewerPage::Left, 0}},
    {"Measurements", &makeMeasurements, {ViewerPage::Right, 0}},
    {"Links", &makeLinks, {ViewerPage::Right, 0}},
    {"Properties", &makeProperties, {ViewerPage::Right, 0}},
    {"Log", &makeLog, {ViewerPage::Below, 0}},
}};

void addNew(QList<ExEditor *> &all, ExEditor *editor)
{
    if (editor != nullptr && !all.contains(editor)) {
        all.append(editor);
    }
}

} // namespace

template <std::size_t index>
ExEditor *PanelEditors::make()
{
    if (s_instance == nullptr) {
        return nullptr;
    }
    const PanelRow &row = panels[index];
    std::unique_ptr<QWidget> panel = row.make(s_instance->m_session);
    const std::string key = std::string("Panel.") + row.name; // The tool that shows it.
    panel->setWindowIcon(
        WorkstationApplication::instance().decoration(key.c_str())->icon(key.c_str()));
    auto *const editor = new PanelEditor(std::move(panel), row.name);
    s_instance->m_made.emplace_back(editor);
    return editor;
}

template <std::size_t... indices>
void PanelEditors::registerAll(std::index_sequence<indices...> /*all*/)
{
    (ExEditor::registerEditor(panels[indices].name, &PanelEditors::make<indices>), ...);
}

PanelEditors::PanelEditors(WorkSession &session)
    : m_session(session)
{
    s_instance = this;
    registerAll(std::make_index_sequence<panels.size()>());
}

PanelEditors::~PanelEditors()
{
    for (const QPointer<ExEditor> &editor : m_made) {
        delete editor;
    }
    for (const PanelRow &row : panels) {
        ExEditor::registerEditor(row.name, nullptr);
    }
    s_instance = nullptr;
}

QList<ExEditor *> PanelEditors::living()
{
    QList<ExEditor *> all;
    for (const ExEditorRegion *region : ExEditorRegion::regions()) {
        for (int i = 0; i < region->subRegionCount(); ++i) {
            const QList<ExEditor *> docked = region->editorContainer(i)->editors();
            std::for_each(docked.begin(), docked.end(), [&](ExEditor *each) { addNew(all, each); });
        }
        const QList<ExEditor *> closed = region->closedEditors();
        std::for_each(closed.begin(), closed.end(), [&](ExEditor *each) { addNew(all, each); });
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        if (const auto *const floater = qobject_cast<const ExEditorFloater *>(window)) {
            addNew(all, floater->editor());
        }
    }
    if (s_instance != nullptr) {
        for (const QPointer<ExEditor> &editor : s_instance->m_made) {
            addNew(all, editor);
        }
    }
    return all;
}

ExEditor *PanelEditors::editor(const QString &name)
{
    return ExEditor::getEditor(name.toLocal8Bit().constData());
}

ExEditor *PanelEditors::livingEditor(const QString &name)
{
    const QList<ExEditor *> all = living();
    const auto found = std::find_if(
        all.begin(), all.end(), [&name](const ExEditor *each) { return each->name() == name; });
    return found == all.end() ? nullptr : *found;
}

PanelEditors::Home PanelEditors::homeOf(const QString &name)
{
    const auto *const found = std::find_if(panels.begin(), panels.end(),
        [&name](const PanelRow &row) { return name == QLatin1String(row.name); });
    return found == panels.end() ? Home() : found->home;
}

StudyPanel *PanelEditors::studies()
{
    const ExEditor *const found = editor(QString::fromLatin1(studiesName));
    return found == nullptr ? nullptr : qobject_cast<StudyPanel *>(found->widgetForMonitor(0));
}
