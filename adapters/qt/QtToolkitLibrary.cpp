// The entry point of the library KVEXQt.
#include "adapters/qt/QtApplication.h"
#include "adapters/qt/QtToolkit.h"
#include "adapters/toolkits/ToolkitLibrary.h"

#include <QLibraryInfo>

#include <string>

const kvex::ToolkitLibrary *kvexToolkit() noexcept {
    static kvex::qt::QtToolkit toolkit;
    static const std::string runtime = "Qt " + QLibraryInfo::version().toString().toStdString();
    static const kvex::ToolkitLibrary library{KVEX_VERSION, runtime.c_str(), &toolkit,
                                              &kvex::qt::obstacleToWindows};
    return &library;
}
