#include "framework/tools/ExHotKeys.h"

#include "framework/dispatch/ExActionMap.h"
#include "framework/tools/ExHotKeyEvent.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/ExToolUI.h"
// The list is a dialog of the application: it stands over the application's dialog parent.
#include "framework/application/ExApplication.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontMetricsF>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

/// What a tool is bound to: the sequence, and whether the binding is its alone.
struct ExHotKeySignal
{
    QKeySequence sequence;
    bool isGlobal = false;

    [[nodiscard]] QKeySequence code() const { return sequence; }
    friend bool operator==(const ExHotKeySignal &, const ExHotKeySignal &) = default;
};

class ExHotKeyMap : public ExActionMap<ExHotKeySignal, QKeySequence, ExHotKeyEvent>
{
public:
    static ExHotKeyMap &instance()
    {
        // Never destroyed: tools may be static objects.
        static auto *const map = new ExHotKeyMap;
        return *map;
    }

    void bind(ExTool &tool, const QKeySequence &sequence)
    {
        release(tool);
        if (!sequence.isEmpty()) {
            addAction(Action({sequence, tool.isHotKeyGlobal()}, &tool, &ExTool::onHotKey));
        }
    }

    [[nodiscard]] ExTool *globalTool(const QKeySequence &sequence)
    {
        const List *const list = find(sequence);
        for (std::size_t i = 0; list != nullptr && i < list->size(); ++i) {
            const Action &action = (*list)[i].action;
            if (!action.isDead() && action.signal.isGlobal) {
                return toolOf(action);
            }
        }
        return nullptr;
    }

    /// The tools of each sequence that has any, in key order.
    [[nodiscard]] std::vector<std::pair<QKeySequence, std::vector<ExTool *>>> tools() const
    {
        std::vector<std::pair<QKeySequence, std::vector<ExTool *>>> all;
        forEachList([&all](const QKeySequence &sequence, const List &list) {
            std::vector<ExTool *> tools;
            for (std::size_t i = 0; i < list.size(); ++i) {
                if (!list[i].action.isDead()) {
                    tools.push_back(toolOf(list[i].action));
                }
            }
            if (!tools.empty()) {
                all.emplace_back(sequence, tools);
            }
        });
        return all;
    }

private:
    static ExTool *toolOf(const Action &action)
    {
        // Only tools are bound here. From a virtual base there is no other way down.
        return dynamic_cast<ExTool *>(action.receiver());
    }

    /// A tool has one binding at most. It is looked for in the table itself, which forgets tools
    /// that are gone.
    void release(ExTool &tool)
    {
        std::vector<Action> bound;
        forEachList([&](const QKeySequence & /*sequence*/, const List &list) {
            for (std::size_t i = 0; i < list.size(); ++i) {
                if (list[i].action.receiver() == &tool) {
                    bound.push_back(list[i].action);
                }
            }
        });
        for (const Action &action : bound) {
            removeAction(action);
        }
    }
};

void showOnActions(const ExTool &tool, const QKeySequence &sequence)
{
    for (const ExToolUI *ui : tool.getUIs()) {
        if (QAction *const action = ui->action()) {
            action->setShortcut(sequence);
            action->setShortcutContext(Qt::WindowShortcut);
        }
    }
}

QString lineFor(const QKeySequence &sequence, const std::vector<ExTool *> &tools)
{
    QStringList keys;
    for (const ExTool *tool : tools) {
        keys.append(QString::fromUtf8(tool->decorationKey()));
    }
    return sequence.toString() + QLatin1Char('\t') + keys.join(QStringLiteral(", "));
}

/// One line for each sequence, the tools in a column of their own, seen from the first line on.
void fillList(QTextEdit &list)
{
    list.ensurePolished(); // The style gives the font.
    const QFontMetricsF metrics(list.font());
    qreal widest = 0;
    for (const auto &[sequence, tools] : ExHotKeyMap::instance().tools()) {
        list.append(lineFor(sequence, tools));
        widest = std::max(widest, metrics.horizontalAdvance(sequence.toString()));
    }
    constexpr int gap = 4;
    list.setTabStopDistance(widest + gap * metrics.averageCharWidth());
    list.moveCursor(QTextCursor::Start);
}

} // namespace

void ExHotKeys::setHotKey(ExTool *tool, const QKeySequence &sequence)
{
    if (tool == nullptr) {
        return;
    }
    if (tool->isHotKeyGlobal() && !sequence.isEmpty()) {
        ExTool *const holder = findHotKey(sequence);
        if (holder != nullptr && holder != tool) {
            setHotKey(holder, QKeySequence());
        }
    }
    ExHotKeyMap::instance().bind(*tool, sequence);
    showOnActions(*tool, sequence);
}

ExTool *ExHotKeys::findHotKey(const QKeySequence &sequence)
{
    return ExHotKeyMap::instance().globalTool(sequence);
}

std::vector<ExTool *> ExHotKeys::hotKeyTools()
{
    std::vector<ExTool *> all;
    for (const auto &[sequence, tools] : ExHotKeyMap::instance().tools()) {
        all.insert(all.end(), tools.begin(), tools.end());
    }
    return all;
}

bool ExHotKeys::triggerHotKey(const QKeySequence &sequence, const ExBaseViewer *viewer)
{
    return ExHotKeyMap::instance().trigger({sequence, false}, {viewer, sequence});
}

void ExHotKeys::addTo(QWidget &window)
{
    for (const ExTool *tool : hotKeyTools()) {
        const ExToolUI *const ui = tool->getUI();
        QAction *const action = ui == nullptr ? nullptr : ui->action();
        if (action != nullptr) {
            window.addAction(action);
        }
    }
}

void ExHotKeys::showHotKeyList()
{
    constexpr QSize size(600, 400);
    auto *const dialog = new QDialog(
        ExApplication::hasInstance() ? ExApplication::instance().dialogParent() : nullptr);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QCoreApplication::translate("ExHotKeys", "Keyboard Shortcuts"));
    auto *const list = new QTextEdit(dialog);
    list->setObjectName(QStringLiteral("wShortCutList"));
    list->setReadOnly(true);
    list->setLineWrapMode(QTextEdit::NoWrap);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setIcon({});
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto *const layout = new QVBoxLayout(dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    dialog->resize(size);
    fillList(*list);
    addTo(*dialog);
    dialog->show();
}
