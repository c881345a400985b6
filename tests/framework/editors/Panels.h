#pragma once

#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"
#include "tests/support/Prelude.h"

/// A panel of which the tests know the size that it wants.
class Panel final : public QFrame
{
public:
    explicit Panel(QSize least)
        : m_least(least)
    { }
    [[nodiscard]] QSize minimumSizeHint() const override { return m_least; }
    [[nodiscard]] QSize sizeHint() const override { return m_least; }

private:
    QSize m_least;
};

/// An editor with a panel.
class PanelEditor : public ExEditor
{
public:
    explicit PanelEditor(const char *name, QSize least = {200, 50})
        : PanelEditor(name, new Panel(least))
    { }
    ~PanelEditor() override { delete panel; }

    const QPointer<Panel> panel;

private:
    PanelEditor(const char *name, Panel *made)
        : ExEditor(made, name)
        , panel(made)
    {
        setObjectName(QString::fromLatin1(name));
    }
};

/// A region with three sub-regions side by side and the editors A, B in the first and C in the
/// second.
class Panels
{
public:
    Panels()
    {
        application.mainWidget = &window;
        window.setGeometry(100, 100, 900, 300);
        region = new ExEditorRegion(Qt::Horizontal, 3, &window);
        region->setGeometry(window.rect());
        region->addEditor(&a, 0);
        region->addEditor(&b, 0);
        region->addEditor(&c, 1);
    }

    /// "A* B | C* |": tabs by sub-regions, with a star the one in front; then what floats or is
    /// closed.
    [[nodiscard]] QString state() const
    {
        QStringList all;
        for (int i = 0; region != nullptr && i < region->subRegionCount(); ++i) {
            const ExEditorContainer *const tabs = region->editorContainer(i);
            QStringList names;
            for (const ExEditor *editor : tabs->editors()) {
                const bool inFront = editor == tabs->currentEditor();
                names.append(editor->name() + (inFront ? QStringLiteral("*") : QString()));
            }
            all.append(names.join(u' '));
        }
        QString text = all.join(QStringLiteral(" | "));
        for (const ExEditor *editor : {&a, &b, &c}) {
            text += editor->isFloating() ? QString(u" ~" % editor->name()) : QString();
            text += editor->isDisabled() ? QString(u" -" % editor->name()) : QString();
        }
        return text;
    }

    PrivateSettings settings;
    FakeApplication application;
    QWidget window;
    PanelEditor a{"A"};
    PanelEditor b{"B"};
    PanelEditor c{"C", {100, 80}};
    QPointer<ExEditorRegion> region;
};
