#pragma once

#include "framework/application/ExApplication.h"
#include "framework/tools/ExDecoration.h"
#include "framework/tools/ToolModule.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

/// Texts and icons of tools, out of what their modules say.
class SmallDecoration final : public ExDecoration
{
public:
    [[nodiscard]] QStringList keys() const override
    {
        QStringList keys;
        for (const auto &[key, decoration] : ToolModule::decorations()) {
            keys += QString::fromStdString(key);
        }
        return keys;
    }
    [[nodiscard]] bool isKnown(const char *key) const override
    {
        return ToolModule::decoration(key) != nullptr;
    }
    [[nodiscard]] QString category(const char *key) const override
    {
        return text(key, &ToolDecoration::category);
    }
    [[nodiscard]] QString description(const char *key) const override
    {
        return text(key, &ToolDecoration::description);
    }
    [[nodiscard]] QString shortCut(const char *key) const override
    {
        const ToolDecoration *const found = ToolModule::decoration(key);
        return found == nullptr ? QString() : QString::fromLatin1(found->shortCut);
    }
    [[nodiscard]] QString iconName(const char * /*key*/) const override { return {}; }
    [[nodiscard]] QIcon icon(const char * /*key*/) const override { return {}; }
    [[nodiscard]] QString text(const char *key, bool /*on*/) const override
    {
        return text(key, &ToolDecoration::text);
    }
    [[nodiscard]] QString toolTip(const char *key) const override
    {
        return text(key, &ToolDecoration::toolTip);
    }

private:
    static QString text(const char *key, const char *ToolDecoration::*which)
    {
        const ToolDecoration *const found = ToolModule::decoration(key);
        return found == nullptr || found->*which == nullptr
            ? QString()
            : QCoreApplication::translate("Tools", found->*which);
    }
};

/// What the framework asks of this client. It has no help and no editor of settings.
class SmallApplication final : public ExApplication
{
public:
    ~SmallApplication() override = default;

    void setMainWindow(QWidget *window) { m_window = window; }

    void quitApplication() override
    {
        m_isQuitting = true;
        QCoreApplication::exit(0);
    }
    [[nodiscard]] bool isQuitting() const override { return m_isQuitting; }
    QWidget *dialogParent() override { return m_window; }
    [[nodiscard]] const ExDecoration *decoration(const char * /*key*/) const override
    {
        return &m_decoration;
    }
    bool helpDisabled() override { return true; }
    void showHelp(const QString & /*topic*/) override { }
    [[nodiscard]] QString helpLocation() const override { return {}; }
    int propertyBrowser(const std::list<KxVariant *> & /*properties*/,
        const QList<QRegularExpression> & /*shown*/, const QList<QRegularExpression> & /*hidden*/,
        bool /*modal*/) override
    {
        return 0;
    }
    [[nodiscard]] bool toolContextMenuHidesProperties() const override { return true; }
    ExUIRegistry *uiRegistry() override { return nullptr; }
    [[nodiscard]] QString userName() const override { return qEnvironmentVariable("USER"); }
    void menuBarAddOnCreated(ExMenuBarAddOn * /*addOn*/) override { }
    void registerActionUI(ExActionUI * /*action*/) override { }

private:
    SmallDecoration m_decoration;
    QPointer<QWidget> m_window;
    bool m_isQuitting = false;
};
