#include "core/AppDependencies.h"

#include "async/Background.h"
#include "core/LiveMoRunner.h"
#include "diagnostics/CrashCapture.h"
#include "diagnostics/RunJournal.h"
#include "files/HomeFolder.h"
#include "platform/VolumeName.h"
#include "removal/FreeSpaceMeter.h"
#include "removal/runs/LiveRemovalDisk.h"
#include "scanners/InstallerScanner.h"

namespace zolva {

AppDependencies liveDependencies(Clock& clock, PrefsStore& prefs)
{
    AppReads reads;
    reads.installers = [&clock] { return background(InstallerScanner::scan, clock.now()); };
    reads.blockedLocations = [] { return background(diskAccess::blockedLocations); };
    reads.volumeName = [] { return volumeName(homeFolder()); };
    return {.clock = clock,
            .prefs = prefs,
            .runner = std::make_unique<LiveMoRunner>(clock),
            .mo = moLocation(),
            .scans = backgroundScans(clock),
            .reads = std::move(reads),
            .disk = {.disk = std::make_shared<LiveRemovalDisk>(),
                     .space = homeVolumeSpace,
                     .processes = std::make_unique<SystemAppProcesses>(),
                     .scanResidue = scanResidue},
            .logFolder = logFolder(homeFolder()),
            .crashCapture = installCrashCapture};
}

} // namespace zolva
