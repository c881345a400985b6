// What it costs to activate another tool of an exclusive group, beside the toolkit's own action
// group.

#include "framework/application/ExApplication.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExDecoration.h"
#include "framework/tools/ExTool.h"
#include "framework/tools/ExToolGroup.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QToolButton>

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

constexpr int tools = 20;
constexpr int buttonsOfATool = 10;

QIcon icon()
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::gray);
    return pixmap;
}

class Decoration : public ExDecoration
{
public:
    [[nodiscard]] QStringList keys() const override { return {}; }
    [[nodiscard]] QString category(const char * /*key*/) const override { return {}; }
    [[nodiscard]] QString description(const char * /*key*/) const override { return {}; }
    [[nodiscard]] bool isKnown(const char * /*key*/) const override { return true; }
    [[nodiscard]] QString shortCut(const char * /*key*/) const override { return {}; }
    [[nodiscard]] QString iconName(const char * /*key*/) const override { return {}; }
    [[nodiscard]] QIcon icon(const char * /*key*/) const override { return m_icon; }
    [[nodiscard]] QString text(const char *key, bool /*on*/) const override
    {
        return QLatin1String(key);
    }
    [[nodiscard]] QString toolTip(const char *key) const override { return QLatin1String(key); }

private:
    QIcon m_icon = ::icon();
};

/// Client that knows every tool and does nothing else.
class Client : public ExApplication
{
public:
    ~Client() override = default;
    void quitApplication() override { }
    ExUIRegistry *uiRegistry() override { return nullptr; }
    [[nodiscard]] QString userName() const override { return {}; }
    QWidget *dialogParent() override { return nullptr; }
    int propertyBrowser(const std::list<KxVariant *> & /*properties*/,
        const QList<QRegularExpression> & /*shown*/, const QList<QRegularExpression> & /*hidden*/,
        bool /*modal*/) override
    {
        return 0;
    }
    void showHelp(const QString & /*topic*/) override { }
    [[nodiscard]] QString helpLocation() const override { return {}; }
    bool helpDisabled() override { return true; }
    void menuBarAddOnCreated(ExMenuBarAddOn * /*addOn*/) override { }
    [[nodiscard]] bool isQuitting() const override { return false; }
    void registerActionUI(ExActionUI * /*action*/) override { }
    [[nodiscard]] const ExDecoration *decoration(const char * /*key*/) const override
    {
        return &m_decoration;
    }

private:
    Decoration m_decoration;
};

class Tool : public ExTool
{
public:
    using ExTool::ExTool;
    [[nodiscard]] bool isEnabled(const ExBaseViewer * /*viewer*/) const override { return true; }
};

/// Visible window with buttons.
class Window : public QWidget
{
public:
    Window()
    {
        new QHBoxLayout(this);
        resize(1000, 100);
        show();
    }
    void addButton(QAction *action)
    {
        auto *const button = new QToolButton;
        button->setDefaultAction(action);
        layout()->addWidget(button);
    }
};

void activateTools(benchmark::State &state)
{
    const Client client;
    ExToolGroup group;
    group.setExclusive(true);
    Window window;
    std::vector<ExActionUI *> actions;
    for (int i = 0; i < tools; ++i) {
        auto *const tool = new Tool(("Tool" + std::to_string(i)).c_str());
        group.appendTool(tool, false);
        for (int k = 0; k < buttonsOfATool; ++k) {
            actions.push_back(ExActionUI::cloneAction(*tool));
            window.addButton(actions.back());
        }
    }
    std::size_t next = 0;
    for (auto _ : state) {
        group.getTools()[++next % tools]->setActive(true);
    }
    if (actions[next % tools * buttonsOfATool]->isChecked() != (next > 0)) {
        state.SkipWithError("the buttons do not follow");
    }
    for (ExActionUI *action : actions) {
        delete action;
    }
}

void activateActions(benchmark::State &state)
{
    QActionGroup group(nullptr);
    Window window;
    for (int i = 0; i < tools; ++i) {
        const QString name = u"Tool" % QString::number(i);
        QAction *const action = group.addAction(icon(), name);
        action->setToolTip(name);
        action->setCheckable(true);
        for (int k = 0; k < buttonsOfATool; ++k) {
            window.addButton(action);
        }
    }
    qsizetype next = 0;
    for (auto _ : state) {
        group.actions().at(++next % tools)->setChecked(true);
    }
    benchmark::DoNotOptimize(group.checkedAction());
}

BENCHMARK(activateActions)->Name("tools: activation/QActionGroup, 20 actions with 10 buttons each");
BENCHMARK(activateTools)->Name("tools: activation/movara, 20 tools with 10 actions each");

} // namespace
