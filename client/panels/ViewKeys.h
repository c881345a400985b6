#pragma once

#include <QKeySequence>
#include <QObject>

#include <functional>
#include <vector>

/// Keys that do something in one widget while it has the focus, whatever they do in the window
/// otherwise. Child of the widget.
class ViewKeys final : public QObject
{
public:
    explicit ViewKeys(QWidget &widget);

    void add(const QKeySequence &keys, std::function<void()> react);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Binding
    {
        QKeySequence keys;
        std::function<void()> react;
    };

    std::vector<Binding> m_bindings;
};
