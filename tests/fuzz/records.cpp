// Placement records, rectangles and numbers from the user's settings: what can be read is written
// so that it reads the same.
#include "framework/monitors/ExMonitorWidget.h"
#include "platform/properties/KxPropertyTrait.h"
#include "tests/fuzz/FuzzInput.h"

namespace {

template <typename T>
void readAndWrite(const QString &text)
{
    using Trait = KxPropertyTrait<T>;
    const std::optional<T> value = Trait::fromString(text);
    require(!value || Trait::fromString(Trait::toString(*value)) == value);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(bytesOf(data, size));
    readAndWrite<ExMonitorWidget::Configuration>(text);
    readAndWrite<QRect>(text);
    readAndWrite<QList<int>>(text);
    readAndWrite<QStringList>(text);
    readAndWrite<int>(text);
    readAndWrite<bool>(text);
    readAndWrite<float>(text);
    readAndWrite<double>(text);
    return 0;
}
