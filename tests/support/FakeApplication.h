#pragma once

#include "framework/application/ExApplication.h"
#include "tests/support/FakeDecoration.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <vector>

/// Application object whose answers the test sets, and that writes what it is told to do to a log.
class FakeApplication : public ExApplication
{
public:
    ~FakeApplication() override = default;

    void quitApplication() override { log.append(QStringLiteral("quit")); }
    ExUIRegistry *uiRegistry() override { return registry; }
    [[nodiscard]] QString userName() const override { return {}; }
    QWidget *dialogParent() override { return mainWidget; }
    int propertyBrowser(const std::list<KxVariant *> & /*properties*/,
        const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden,
        bool modal) override
    {
        log.append(u"browse [" % shown.value(0).pattern() % u"] [" % hidden.value(0).pattern()
            % (modal ? u"] modal" : u"]"));
        return 7;
    }
    using ExApplication::propertyBrowser;
    void showHelp(const QString &topic) override { log.append(u"help " % topic); }
    [[nodiscard]] QString helpLocation() const override { return {}; }
    bool helpDisabled() override { return hasNoHelp; }
    void menuBarAddOnCreated(ExMenuBarAddOn * /*addOn*/) override { }
    [[nodiscard]] bool isQuitting() const override { return false; }
    void registerActionUI(ExActionUI *action) override { actions.push_back(action); }
    [[nodiscard]] const ExDecoration *decoration(const char * /*key*/) const override
    {
        return &decorations;
    }
    void editToolProperties(const std::list<KxVariant *> & /*properties*/,
        const QList<QRegularExpression> &patterns) override
    {
        log.append(u"edit " % patterns.constFirst().pattern());
    }
    [[nodiscard]] bool toolContextMenuHidesProperties() const override { return hidesProperties; }
    [[nodiscard]] bool toolContextMenuShowsIdentification() const override
    {
        return showsIdentification;
    }

    QStringList log;
    FakeDecoration decorations;
    QPointer<QWidget> mainWidget;
    std::vector<ExActionUI *> actions;
    ExUIRegistry *registry = nullptr;
    bool hasNoHelp = false;
    bool hidesProperties = false;
    bool showsIdentification = false;
};
