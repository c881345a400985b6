#include "SliceView.h"
#include "SmallApplication.h"
#include "ViewArea.h"
#include "framework/dialogs/ExMessageBox.h"
#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExToolBar.h"
#include "framework/viewers/ExViewerDB.h"
#include "platform/dicomio/DicomScanner.h"
#include "platform/dicomio/DicomVolumeLoader.h"
#include "platform/toolkit/QxApplication.h"
#include "platform/util/McLogFile.h"

#include <QMainWindow>

#include <array>
#include <cstdio>

namespace {

/// The first series of a folder; null when there are no images.
McHandle<Zel::DicomDirectoryEntry> firstSeries(const char *folder)
{
    const DicomScanner::Result found = DicomScanner::scanNow({McFilename(folder)});
    if (found.patients.isEmpty()) {
        return nullptr;
    }
    McHandle<Zel::DicomDirectoryEntry> entry = found.patients[0];
    while (!entry->isSeries()) {
        entry = entry->children()[0];
    }
    return entry->isImage() ? entry : nullptr;
}

using Pair = std::array<McHandle<SliceView>, 2>;

/// Shows in the views what is read, while it is read, and tells what cannot be. The views must
/// outlive the loader.
void showIn(const Pair &views, DicomVolumeLoader &loader)
{
    QObject::connect(&loader, &DicomVolumeLoader::prepared, &loader, [&views, &loader] {
        for (const McHandle<SliceView> &view : views) {
            view->setSeries(loader.series());
        }
    });
    QObject::connect(&loader, &DicomVolumeLoader::sliceLoaded, &loader, [&views](int, int z) {
        for (const McHandle<SliceView> &view : views) {
            if (view->sliceIndex() == z) {
                view->requestRender();
            }
        }
    });
    QObject::connect(&loader, &DicomVolumeLoader::windowEstimated, &loader, [&views](int) {
        for (const McHandle<SliceView> &view : views) {
            view->requestRender();
        }
    });
    QObject::connect(&loader, &DicomVolumeLoader::sliceFailed, &loader,
        [](int, int, const QString &reason) { McLogFile::warnf("%s", qUtf8Printable(reason)); });
    QObject::connect(&loader, &DicomVolumeLoader::failed, &loader,
        [](const QString &reason) { ExMessageBox::error(reason); });
}

} // namespace

int main(int argc, char **argv)
{
    QxApplication toolkit(argc, argv);
    const auto entry = argc == 2 ? firstSeries(argv[1]) : nullptr;
    if (!entry) {
        std::fprintf(stderr, "Usage: small-client FOLDER, with DICOM images in it\n");
        return 2;
    }
    SmallApplication application; // before any window
    ExTool::doInitCallbacks();
    QMainWindow window;
    application.setMainWindow(&window);
    application.setDefaultStyle();
    auto *const area = new ViewArea;
    window.setCentralWidget(area);
    const McHandle<ViewWatch> watch(new ViewWatch);
    Views views(*area);

    const Pair shown{
        McHandle<SliceView>(new SliceView(area)), McHandle<SliceView>(new SliceView(area))};
    views.add(*shown[0], McBox2f(0, 0, 0.5F, 1));
    views.add(*shown[1], McBox2f(0.5F, 0, 1, 1));
    ExViewerDB::createGroup(ExViewerDB::TRANSLATION_GROUP, {shown[0], shown[1]}, true);
    views.setActiveViewer(shown[0]);

    ExToolBar bar(QStringLiteral("View"));
    window.addToolBar(&bar);
    bar.setVisible(true);
    if (ExTool *const invert = ExTool::getToolByDecorationKey("View.Invert", true)) {
        bar.addTool(*invert, false);
    }

    DicomVolumeLoader loader;
    showIn(shown, loader);
    loader.start(entry);

    window.resize(900, 500);
    window.show();
    return QxApplication::exec();
}
