#include "ctl/AppSource.h"

#include "async/Clock.h"
#include "core/LiveMoRunner.h"
#include "ctl/AppListFile.h"
#include "ctl/Session.h"
#include "files/DisplayPath.h"

#include <QCoroTask>

#include <utility>

namespace zolva::ctl {

namespace {

tl::expected<std::vector<UninstallApp>, std::string> appsFromTool()
{
    const Session session;
    SystemClock clock;
    LiveMoRunner runner(clock);
    AppList list = QCoro::waitFor(runner.listApps());
    if (!list) {
        return tl::unexpected(displayLine(userText(list.error())));
    }
    return std::move(*list);
}

} // namespace

tl::expected<std::vector<UninstallApp>, std::string> listedApps(const Request& request)
{
    return request.appsFile ? appsFromFile(*request.appsFile) : appsFromTool();
}

} // namespace zolva::ctl
