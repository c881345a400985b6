#include "client/application/PropertyBrowser.h"

#include "client/panels/PropertiesPanel.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

PropertyBrowser::PropertyBrowser(const std::list<KxVariant *> &properties,
    const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden,
    QWidget *parent)
    : QDialog(parent)
    , m_panel(new PropertiesPanel(shown, hidden))
{
    constexpr QSize size(760, 560);
    setObjectName(QStringLiteral("PropertyBrowser"));
    setWindowTitle(tr("Settings"));
    m_panel->setProperties(properties);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton &close = *buttons->button(QDialogButtonBox::Close);
    // The return key ends the entry of a value, nothing else.
    close.setAutoDefault(false);
    close.setIcon({});
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_panel);
    layout->addWidget(buttons);
    resize(size);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

PropertyBrowser::~PropertyBrowser()
{
    hide(); // Fields that lose the focus tell their values, while there is somebody to be told.
}

int PropertyBrowser::numChanged() const
{
    return m_panel->numChanged();
}
