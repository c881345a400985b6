#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QToolButton>
#include <QVariant>

class QActionGroup;

/// Tool button that opens a menu of options, one of which is in force; the button shows its text.
/// GUI thread only. Options are named by their position, from 0.
class MOVARA_PLATFORM_EXPORT QxOptionsButton : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QxOptionsButton)

public:
    explicit QxOptionsButton(QWidget *parent = nullptr);
    ~QxOptionsButton() override;

    /// Adds an option at the end and returns its position. The first one added comes into force,
    /// without a signal.
    int addOption(const QString &text, const QVariant &value = QVariant());
    void clearOptions();
    [[nodiscard]] int count() const;
    /// Data of the option in force; invalid when there are none.
    [[nodiscard]] QVariant currentData() const;
    /// Puts an option in force; a position that does not exist is ignored.
    void setCurrentOption(int position);
    /// The position of the first option with @p value, or -1.
    [[nodiscard]] int findData(const QVariant &value) const;

Q_SIGNALS:
    /// Another option came into force, by the user or by the program.
    void currentOptionChanged(int position);

private:
    QActionGroup *m_options;
    int m_current = -1;
};
