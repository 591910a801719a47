#include "async/Clock.h"
#include "core/LiveData.h"
#include "core/StatusDecoder.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

/// Hands out one stream, which whoever measures feeds.
class FedRunner final : public zolva::MoRunner
{
public:
    explicit FedRunner(std::shared_ptr<zolva::StatusStream> stream) : m_stream(std::move(stream)) {}

    std::shared_ptr<zolva::StatusStream> statusStream(std::chrono::seconds /*interval*/) override
    {
        return m_stream;
    }
    QCoro::Task<zolva::AppList> listApps() override { co_return zolva::AppList(); }

private:
    std::shared_ptr<zolva::StatusStream> m_stream;
};

} // namespace

/// Takes one line of the status stream through the decoder to the published sample, many times, and
/// tells how long that took.
int main(int count, char** arguments)
{
    std::string line;
    std::ifstream file(count == 2 ? arguments[1] : "");
    if (!std::getline(file, line)) {
        std::fprintf(stderr, "usage: status-publish FILE (with a line of the status stream)\n");
        return 2;
    }
    const QCoreApplication application(count, arguments);
    zolva::SystemClock clock;
    auto stream = std::make_shared<zolva::StatusStream>();
    zolva::LiveData live(std::make_unique<FedRunner>(stream), zolva::backgroundScans(clock));
    int published = 0;
    QObject::connect(&live, &zolva::LiveData::statusChanged, &live, [&] { ++published; });
    live.retainStatus();

    std::vector<double> spent(2001);
    int expected = 0;
    for (double& one : spent) {
        const auto begin = std::chrono::steady_clock::now();
        auto reading = zolva::decodeStatus(line);
        if (!reading) {
            std::fprintf(stderr, "status-publish: %s\n", reading.error().c_str());
            return 1;
        }
        stream->send(std::move(*reading));
        ++expected;
        while (published < expected) {
            QCoreApplication::processEvents();
        }
        const std::chrono::duration<double, std::milli> past =
            std::chrono::steady_clock::now() - begin;
        one = past.count();
    }
    std::sort(spent.begin(), spent.end());
    std::printf("%zu bytes: median %.3f ms, slowest of %zu %.3f ms\n", line.size(),
                spent[spent.size() / 2], spent.size(), spent.back());
    return 0;
}
