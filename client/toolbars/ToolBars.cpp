#include "client/toolbars/ToolBars.h"

#include "client/app/NotificationWatch.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/ExToolBar.h"
#include "framework/tools/ExToolUI.h"
#include "platform/properties/KxFileSerializer.h"
#include "platform/util/McLogFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMetaObject>
#include <QToolButton>

#include <algorithm>
#include <iterator>
#include <map>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ToolBars)
};

/// Labels of the file that comes with the program; those of a user are shown as they are.
[[maybe_unused]] constexpr const char *labels[] = {
    QT_TRANSLATE_NOOP("ToolBarLabels", "View"),
    QT_TRANSLATE_NOOP("ToolBarLabels", "Mouse"),
    QT_TRANSLATE_NOOP("ToolBarLabels", "Layout"),
    QT_TRANSLATE_NOOP("ToolBarLabels", "Plane"),
    QT_TRANSLATE_NOOP("ToolBarLabels", "Flip"),
    QT_TRANSLATE_NOOP("ToolBarLabels", "Help"),
};

QString shownLabel(const QString &label)
{
    return QCoreApplication::translate("ToolBarLabels", label.toUtf8().constData());
}

QString defaultFile()
{
    return QStringLiteral(":/movara/toolbars/toolbars.xml");
}

std::variant<ToolBarLayout, ToolBarLayout::Error> readFile(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return ToolBarLayout::Error{0, file.errorString()};
    }
    return ToolBarLayout::read(file.readAll());
}

/// Null for one that is unknown or that the user has no right to.
ExTool *findTool(const QString &id)
{
    return ExTool::getToolByDecorationKey(id.toUtf8().constData(), true);
}

/// Whether there is such a tool, also one that the user has no right to.
bool isKnown(const QString &id)
{
    std::vector<std::string> known;
    ExTool::getDecorationKeyList(known, true);
    return std::binary_search(known.begin(), known.end(), id.toStdString())
        || findTool(id) != nullptr; // By an outdated name.
}

bool hasTool(const ToolBarLayout::Item &item)
{
    return item.kind == ToolBarLayout::Item::Tool
        ? findTool(item.id) != nullptr
        : std::any_of(item.tools.begin(), item.tools.end(),
            [](const QString &id) { return findTool(id) != nullptr; });
}

/// What can be shown, with separators only between tools.
std::vector<ToolBarLayout::Item> usable(const std::vector<ToolBarLayout::Item> &items)
{
    using Item = ToolBarLayout::Item;
    std::vector<Item> result;
    bool hasTools = false; // since the last separator
    for (const Item &item : items) {
        if (item.kind == Item::Separator ? !hasTools
                                         : item.kind != Item::Spacer && !hasTool(item)) {
            continue;
        }
        hasTools = item.kind != Item::Separator && (hasTools || item.kind != Item::Spacer);
        result.push_back(item);
    }
    const auto last = std::find_if(result.rbegin(), result.rend(),
        [](const Item &item) { return item.kind == Item::Separator; });
    if (!hasTools && last != result.rend()) {
        result.erase(std::next(last).base());
    }
    return result;
}

} // namespace

ToolBars::ToolBars()
    : m_watch(new NotificationWatch(
        {ExNotification::ACTIVE_VIEWER_CHANGED, ExNotification::VIEWER_SUBTYPE_CHANGED,
            ExNotification::VIEWER_LAYOUT_CHANGED},
        [this](const ExNotification & /*notification*/) { showActiveTools(); }))
{
    for (const ToolBarLayout::Bar &bar : layout().bars) {
        addBar(bar);
    }
    if (!m_problem.isEmpty()) {
        McLogFile::warnf("%s", qUtf8Printable(m_problem));
        const QString problem = m_problem;
        QMetaObject::invokeMethod(
            &m_context, [problem] { ExMessageBox::warning(problem); }, Qt::QueuedConnection);
    }
}

ToolBars::~ToolBars()
{
    for (const ExMonitorWidget::ToolBar &entry : m_entries) {
        if (entry.toolBar() != nullptr && entry.toolBar()->parentWidget() == nullptr) {
            delete entry.toolBar();
        }
    }
}

QString ToolBars::userFile()
{
    return QFileInfo(KxFileSerializer::defaultFileName())
        .absoluteDir()
        .filePath(QStringLiteral("toolbars.xml"));
}

QString ToolBars::createUserFile()
{
    const QString name = userFile();
    if (QFile::exists(name)) {
        return {};
    }
    QDir().mkpath(QFileInfo(name).absolutePath());
    QFile source(defaultFile());
    if (!source.copy(name)) {
        return Texts::tr("%1 cannot be written: %2").arg(name, source.errorString());
    }
    // Resources are read-only, and so are their copies.
    QFile::setPermissions(name, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return {};
}

ToolBarLayout ToolBars::layout()
{
    if (QFile::exists(userFile())) {
        const auto result = readFile(userFile());
        if (const auto *const own = std::get_if<ToolBarLayout>(&result)) {
            noteUnknownTools(*own);
            return *own;
        }
        const auto &error = std::get<ToolBarLayout::Error>(result);
        const QString place = error.line == 0
            ? userFile()
            : Texts::tr("%1, line %2").arg(userFile()).arg(error.line);
        m_problem = Texts::tr("The tool bars are those of the program, because your file cannot be "
                              "used.\n%1: %2")
                        .arg(place, error.text);
    }
    return std::get<ToolBarLayout>(readFile(defaultFile()));
}

void ToolBars::noteUnknownTools(const ToolBarLayout &own)
{
    std::map<qint64, QString> lines;
    for (const auto &[id, line] : own.toolLines) {
        if (!isKnown(id)) {
            lines[line] += Texts::tr("%1, line %2: There is no tool \"%3\".")
                               .arg(userFile())
                               .arg(line)
                               .arg(id)
                % u'\n';
        }
    }
    for (const auto &[line, text] : lines) {
        m_problem += text;
    }
    if (!m_problem.isEmpty()) {
        m_problem = Texts::tr("Your file of the tool bars names tools that do not exist. They are "
                              "left out.")
            % u'\n' % m_problem.trimmed();
    }
}

void ToolBars::addBar(const ToolBarLayout::Bar &bar)
{
    auto *const toolBar = new ExToolBar(shownLabel(bar.label));
    toolBar->setObjectName(bar.id);
    toolBar->setAccessibleName(shownLabel(bar.label));
    for (const ToolBarLayout::Item &item : usable(bar.items)) {
        addItem(*toolBar, item);
    }
    const QList<QAction *> actions = toolBar->actions();
    const bool hasTools = std::any_of(actions.begin(), actions.end(),
        [](const QAction *action) { return qobject_cast<const ExActionUI *>(action) != nullptr; });
    if (!hasTools) {
        delete toolBar;
        return;
    }
    m_entries.append(ExMonitorWidget::ToolBar(toolBar, true, Qt::TopToolBarArea));
}

void ToolBars::addItem(ExToolBar &toolBar, const ToolBarLayout::Item &item)
{
    switch (item.kind) {
    case ToolBarLayout::Item::Tool:
        if (ExTool *const tool = findTool(item.id)) {
            toolBar.addTool(*tool, true);
        }
        break;
    case ToolBarLayout::Item::Popup:
        addPopup(toolBar, item);
        break;
    case ToolBarLayout::Item::Spacer:
        toolBar.addSpacer(item.size);
        break;
    case ToolBarLayout::Item::Separator:
        toolBar.addSeparator();
        break;
    }
}

void ToolBars::addPopup(ExToolBar &toolBar, const ToolBarLayout::Item &item)
{
    auto group = std::make_unique<ExToolGroup>();
    group->setBringUp(true);
    for (const QString &id : item.tools) {
        group->appendTool(findTool(id), false);
    }
    if (group->getTools().empty()) {
        return;
    }
    ExActionUI *const action = toolBar.addToolPopup(*group, nullptr);
    QWidget *const button = toolBar.widgetForAction(action);
    button->setObjectName(item.id);
    button->setAccessibleName(shownLabel(item.label));
    m_groups.push_back(std::move(group));
    showActiveTools();
}

void ToolBars::showActiveTools()
{
    for (const auto &group : m_groups) {
        const McHandle<ExTool> active = group->getActiveTool();
        if (active) {
            group->getGroupUI()->setTool(active);
        }
    }
}
