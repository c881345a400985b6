#include "framework/editors/ExEditor.h"

#include <QCoreApplication>
#include <QPlainTextEdit>
#include <QPointer>

#include <memory>

namespace {

class NotesEditor final : public ExEditor
{
public:
    explicit NotesEditor(std::unique_ptr<QPlainTextEdit> text)
        : ExEditor(text.get(), "Notes")
        , m_text(text.release())
    {
        m_text->setWindowTitle(QCoreApplication::translate("NotesEditor", "Notes"));
        setSupportedFlag(true);
    }
    ~NotesEditor() override { delete m_text; }

private:
    QPointer<QPlainTextEdit> m_text;
};

const bool registered = ExEditor::addInitCallback([] {
    ExEditor::registerEditor("Notes",
        []() -> ExEditor * { return new NotesEditor(std::make_unique<QPlainTextEdit>()); });
});

} // namespace
