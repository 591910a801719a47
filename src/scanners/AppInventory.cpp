#include "scanners/AppInventory.h"

#include "files/FolderTally.h"
#include "platform/FileDates.h"

namespace zolva {

UninstallApp enrichApp(UninstallApp app)
{
    // No path holds a NUL, and the system would measure another one: what stands before it.
    if (app.path.find('\0') != std::string::npos) {
        app.version.reset();
        app.installedDate.reset();
        app.bundleBytes = 0;
        return app;
    }
    app.version = bundleVersion(app.path);
    app.installedDate = addedToFolderDate(app.path);
    if (!app.installedDate) {
        app.installedDate = creationDate(app.path);
    }
    app.bundleBytes = folderTally(app.path).bytes;
    return app;
}

} // namespace zolva
