#pragma once

#include "framework/tools/ExDecoration.h"

#include <QMap>

/// Decoration provider that knows what the test enters, and that writes "question key" to a log.
class FakeDecoration : public ExDecoration
{
public:
    struct Entry
    {
        QString shortCut;
        QString onText;
        QString offText;
        QString toolTip;
        QIcon icon;
    };

    [[nodiscard]] QStringList keys() const override { return entries.keys(); }
    [[nodiscard]] QString category(const char * /*key*/) const override { return {}; }
    [[nodiscard]] QString description(const char * /*key*/) const override { return {}; }
    [[nodiscard]] bool isKnown(const char *key) const override
    {
        ask("known", key);
        return entries.contains(QLatin1String(key));
    }
    [[nodiscard]] QString shortCut(const char *key) const override
    {
        return ask("shortCut", key).shortCut;
    }
    [[nodiscard]] QString iconName(const char * /*key*/) const override { return {}; }
    [[nodiscard]] QIcon icon(const char *key) const override { return ask("icon", key).icon; }
    [[nodiscard]] QString text(const char *key, bool on) const override
    {
        return on ? ask("onText", key).onText : ask("offText", key).offText;
    }
    [[nodiscard]] QString toolTip(const char *key) const override
    {
        return ask("toolTip", key).toolTip;
    }

    QMap<QString, Entry> entries;
    mutable QStringList log;

private:
    Entry ask(const char *question, const char *key) const
    {
        log.append(QLatin1String(question) + u' ' + QLatin1String(key));
        return entries.value(QLatin1String(key));
    }
};
