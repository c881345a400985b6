#include "client/application/PropertyEditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

#include <limits>

PropertyEditor::PropertyEditor(KxVariant &property, QWidget *parent)
    : QWidget(parent)
    , m_property(property)
{
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    QWidget *const field = makeField();
    field->setObjectName(property.key());
    field->setAccessibleName(property.label().isEmpty() ? property.key() : property.label());
    field->setFocusPolicy(Qt::StrongFocus); // The wheel scrolls the list, not the values.
    layout->addWidget(field);
    setFocusProxy(field);
    m_show();
    connect(&property, &KxVariant::propertyChanged, this, [this] { m_show(); });
}

QWidget *PropertyEditor::makeField()
{
    if (!m_property.choices().isEmpty()) {
        return makeChoices();
    }
    switch (m_property.kind()) {
    case KxVariant::Kind::Boolean:
        return makeCheckBox();
    case KxVariant::Kind::Integer:
        return makeInteger();
    case KxVariant::Kind::Real:
        return makeReal();
    default:
        return makeText();
    }
}

QWidget *PropertyEditor::makeCheckBox()
{
    auto *const box = new QCheckBox(this);
    const QString on = QStringLiteral("true");
    m_show = [this, box, on] {
        const QSignalBlocker blocker(box);
        box->setChecked(m_property.toString() == on);
    };
    connect(box, &QCheckBox::toggled, this,
        [this, on](bool checked) { enter(checked ? on : QStringLiteral("false")); });
    return box;
}

QWidget *PropertyEditor::makeChoices()
{
    auto *const list = new QComboBox(this);
    const QStringList choices = m_property.choices();
    const QStringList labels = m_property.choiceLabels();
    for (qsizetype i = 0; i < choices.size(); ++i) {
        const QString label = labels.value(i, choices[i]);
        list->addItem(label.isEmpty() ? tr("As the system") : label, choices[i]);
    }
    m_show = [this, list] {
        const QSignalBlocker blocker(list);
        list->setCurrentIndex(list->findData(m_property.toString()));
    };
    connect(list, &QComboBox::activated, this,
        [this, list](int index) { enter(list->itemData(index).toString()); });
    return list;
}

QWidget *PropertyEditor::makeInteger()
{
    auto *const box = new QSpinBox(this);
    const QVariant least = m_property.attribute("Minimum");
    const QVariant most = m_property.attribute("Maximum");
    box->setRange(least.isValid() ? least.toInt() : std::numeric_limits<int>::min(),
        most.isValid() ? most.toInt() : std::numeric_limits<int>::max());
    box->setKeyboardTracking(false);
    m_show = [this, box] {
        const QSignalBlocker blocker(box);
        box->setValue(m_property.toString().toInt());
    };
    connect(
        box, &QSpinBox::valueChanged, this, [this](int value) { enter(QString::number(value)); });
    return box;
}

QWidget *PropertyEditor::makeReal()
{
    constexpr double most = 1e9;
    constexpr int decimals = 3;
    auto *const box = new QDoubleSpinBox(this);
    box->setRange(-most, most);
    box->setDecimals(decimals);
    box->setKeyboardTracking(false);
    m_show = [this, box] {
        const QSignalBlocker blocker(box);
        box->setValue(m_property.toString().toDouble());
    };
    connect(box, &QDoubleSpinBox::valueChanged, this,
        [this](double value) { enter(QString::number(value, 'g', 15)); });
    return box;
}

QWidget *PropertyEditor::makeText()
{
    auto *const line = new QLineEdit(this);
    m_show = [this, line] { line->setText(m_property.toString()); };
    connect(line, &QLineEdit::editingFinished, this, [this, line] { enter(line->text()); });
    return line;
}

void PropertyEditor::enter(const QString &text)
{
    if (text == m_property.toString() || m_property.changeFromString(text)) {
        return;
    }
    if (!m_property.fromString(text)) { // Otherwise it is the present value, written differently.
        Q_EMIT refused(text);
    }
    m_show();
}
