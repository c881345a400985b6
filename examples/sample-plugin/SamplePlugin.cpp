// A plug-in of its own: a tool and a panel that share a setting. Everything is registered from
// static objects; the workstation runs what is to be done later once its application object is
// there.

#include "framework/application/ExApplication.h"
#include "framework/application/PluginInterface.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/editors/ExEditor.h"
#include "framework/notification/ExNotifiables.h"
#include "framework/tools/ExTrigger.h"
#include "framework/tools/ToolModule.h"
#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExViewerManager.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxTranslationProperty.h"
#include "platform/render/KxVolume.h"

#include <QCoreApplication>
#include <QLabel>
#include <QObject>

#include <algorithm>
#include <limits>

namespace {

/// A setting, kept for the user, beside those of the workstation, in a group of its own.
constexpr char groupKey[] = "Sample";
constexpr char decimalsKey[] = "Sample.Decimals";

const bool isRegistered = KxPropertyPool::addRegisterProperties([](KxPropertyPool &pool) {
    KxTranslationProperty::translate(groupKey, QT_TRANSLATE_NOOP("Property", "Sample Plug-in"));
    KxTranslationProperty::translate(
        decimalsKey, QT_TRANSLATE_NOOP("Property", "Decimals of Values"));
    pool.property<int>(decimalsKey, 1, pool.registrySerializer());
});

int decimals()
{
    return KxPropertyPool::instance().find<int>(decimalsKey)->value();
}

struct Range
{
    double least = std::numeric_limits<double>::max();
    double most = std::numeric_limits<double>::lowest();
};

Range rangeOf(const KxVolume &volume)
{
    Range range;
    const auto [columns, rows, slices] = volume.dimensions();
    for (int z = 0; z < slices; ++z) {
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                const double value = volume.value(x, y, z);
                range.least = std::min(range.least, value);
                range.most = std::max(range.most, value);
            }
        }
    }
    return range;
}

/// Tells the least and the greatest value of the volume in the active viewer.
class ValuesTool final : public ExTrigger
{
public:
    ValuesTool()
        : ExTrigger("Sample.Values")
    {
        setActivatable(false); // A command: it is not on or off.
    }

    bool isEnabled(const ExBaseViewer *viewer) const override
    {
        return viewer != nullptr && viewer->volume(0) != nullptr;
    }

    bool process(ExBaseViewer *viewer, bool /*on*/) override
    {
        const Range range = rangeOf(*viewer->volume(0));
        ExMessageBox::info(QCoreApplication::translate("Tools", "Values from %1 to %2 %3")
                               .arg(range.least, 0, 'f', decimals())
                               .arg(range.most, 0, 'f', decimals())
                               .arg(QString::fromStdString(viewer->volume(0)->unit())));
        return true;
    }
};

const ToolModule values(
    {
        .key = "Sample.Values",
        .category = QT_TRANSLATE_NOOP("Tools", "Sample"),
        .text = QT_TRANSLATE_NOOP("Tools", "Range of &values"),
        .toolTip = QT_TRANSLATE_NOOP("Tools", "Tell the least and the greatest value"),
        .description = QT_TRANSLATE_NOOP("Tools", "Of the volume in the active viewer."),
        .icon = ":/sample/values.svg",
    },
    [](int) -> ExTool * { return new ValuesTool; });

QString sizeText(const KxVolume *volume)
{
    if (volume == nullptr) {
        return QCoreApplication::translate("Sample", "The active viewer shows no volume.");
    }
    const auto [columns, rows, slices] = volume->dimensions();
    const auto [x, y, z] = volume->spacing();
    return QCoreApplication::translate("Sample", "%1 × %2 × %3 voxels of\n%4 × %5 × %6 mm")
        .arg(columns)
        .arg(rows)
        .arg(slices)
        .arg(x, 0, 'f', decimals())
        .arg(y, 0, 'f', decimals())
        .arg(z, 0, 'f', decimals());
}

/// Has a label tell the size of the volume in the active viewer.
class SizeWatch final : public ExNotifiable
{
public:
    explicit SizeWatch(QLabel &label)
        : m_label(label)
    {
        update();
    }

    void addNotifications() override
    {
        ExNotifiables &notifiables = ExNotifiables::getInstance();
        notifiables.addNotification(this, ExNotification::ACTIVE_VIEWER_CHANGED);
        notifiables.addNotification(this, ExNotification::VIEWER_VOLUME_CHANGED);
    }

    void notified(const ExNotification & /*notification*/) override { update(); }

private:
    void update()
    {
        const ExViewerManager *const manager = ExViewerManager::instancePointer();
        const ExBaseViewer *const viewer = manager == nullptr ? nullptr : manager->activeViewer();
        m_label.setText(sizeText(viewer == nullptr ? nullptr : viewer->volume(0)));
    }

    QLabel &m_label;
};

class SizePanel final : public QLabel
{
public:
    SizePanel()
        : m_watch(new SizeWatch(*this))
    {
        setWindowTitle(QCoreApplication::translate("Tools", "Size of Volume"));
        setAlignment(Qt::AlignCenter);
    }

private:
    McHandle<ExNotifiable> m_watch;
};

/// Called when the panel is first shown. Editor and panel live until the process ends.
ExEditor *makeSizeEditor()
{
    auto *const editor = new ExEditor(new SizePanel);
    editor->setSupportedFlag(true);
    return editor;
}

const bool hasPanel = ExEditor::addInitCallback([] {
    ExEditor::registerEditor(QT_TRANSLATE_NOOP("Tools", "Size of Volume"), &makeSizeEditor);
});

} // namespace

/// What makes the library a plug-in of this series of versions.
class SamplePlugin final : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID MOVARA_PLUGIN_IID)
};

#include "SamplePlugin.moc"
