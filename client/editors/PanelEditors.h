#pragma once

#include "client/desktop/ViewerPage.h"

#include <QList>
#include <QPointer>
#include <QString>

#include <utility>
#include <vector>

class ExEditor;
class QWidget;
class StudyPanel;
class WorkSession;

/// The workstation's panels as editors: "Studies", "Links", "Measurements", "Properties" and "Log".
/// A panel is made when it is first shown and goes with this object, of which there is one, owned
/// by the work session. GUI thread only.
class PanelEditors final
{
public:
    /// Where a panel is docked that has no place yet.
    struct Home
    {
        ViewerPage::Place place = ViewerPage::Right;
        int subRegion = 0;
    };

    static constexpr char studiesName[] = "Studies";

    /// Registers the panels. @param session must outlive it.
    explicit PanelEditors(WorkSession &session);
    /// Destroys the panels and forgets their factories.
    ~PanelEditors();
    PanelEditors(const PanelEditors &) = delete;
    PanelEditors &operator=(const PanelEditors &) = delete;

    /// Those that have been made and still live, these panels and those of plug-ins.
    [[nodiscard]] static QList<ExEditor *> living();
    /// Null when there is none of this name, or the user has no right to it.
    [[nodiscard]] static ExEditor *editor(const QString &name);
    /// The same without making it: null before it was first shown.
    [[nodiscard]] static ExEditor *livingEditor(const QString &name);
    [[nodiscard]] static Home homeOf(const QString &name);
    /// The list of studies; null when the user has no right to it.
    [[nodiscard]] static StudyPanel *studies();

private:
    template <std::size_t index>
    static ExEditor *make();
    template <std::size_t... indices>
    static void registerAll(std::index_sequence<indices...> all);

    static PanelEditors *s_instance;

    WorkSession &m_session;
    std::vector<QPointer<ExEditor>> m_made;
};
