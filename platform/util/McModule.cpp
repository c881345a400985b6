#include "platform/util/McModule.h"

#include "platform/util/McFilename.h"
#include "platform/util/McLogFile.h"

#include <QLibrary>

#include <dlfcn.h>

namespace {

/// The folder of this library.
McFilename ownFolder()
{
    Dl_info info = {};
    const bool isKnown = dladdr(reinterpret_cast<const void *>(&ownFolder), &info) != 0;
    return isKnown ? McFilename(info.dli_fname).parent_path() : McFilename();
}

} // namespace

McModule::McModule(const char *name)
    : m_file((ownFolder() / MOVARA_MODULE_FOLDER / ("lib" + std::string(name) + ".so")).string())
{
    QLibrary library(QString::fromStdString(m_file));
    library.setLoadHints(QLibrary::PreventUnloadHint);
    m_maker = library.resolve("movaraMake");
    if (m_maker == nullptr) {
        m_problem = "A part of Movara cannot be loaded: " + library.errorString().toStdString()
            + ". Install Movara anew, with all that it depends on.";
        McLogFile::warnf("%s", m_problem.c_str());
    }
}
