#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QSplitterHandle>

class ExSplitter;
class SplitterButton;

/// A handle of an ExSplitter, with its button in the middle. Owned by the splitter.
class MOVARA_FRAMEWORK_EXPORT SplitterHandle : public QSplitterHandle
{
    Q_OBJECT

public:
    SplitterHandle(Qt::Orientation orientation, ExSplitter *splitter);

    [[nodiscard]] SplitterButton *button() const { return m_button; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    SplitterButton *m_button;
};
