#include "core/LiveData.h"
#include "core/LiveMoRunner.h"

#include "core/ScriptedRunner.h"
#include "core/StatusSample.h"
#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"
#include "support/qt/ScriptedTool.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <variant>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;

/// Prints a line, says who it is, and another line whenever a file "more" is there.
constexpr const char* patient = R"(echo $$ > "$here/pid"; cat "$here/line"
while :; do test -e "$here/more" && rm "$here/more" && cat "$here/line"; sleep 0.01; done)";

struct Bridge
{
    explicit Bridge(const std::string& script)
        : tool(script), location{tool.path(), MoLocation::Kind::Shipped}
    {
        tool.put("line", statusLine() + "\n");
    }

    [[nodiscard]] std::unique_ptr<LiveMoRunner> runner()
    {
        return std::make_unique<LiveMoRunner>(clock, location);
    }
    [[nodiscard]] int pid() const { return tool.numbers("pid").at(0); }
    void end(const std::shared_ptr<StatusStream>& stream) const
    {
        stream->cancel();
        pumpUntil([&] { return isGone(pid()); });
        pumpOnce();
    }

    ScriptedTool tool;
    MoLocation location;
    ManualClock clock;
};

/// Makes every further read of what the child writes to this descriptor fail: this process's end of
/// the pipe becomes a folder.
void spoilReading(int child, int descriptor)
{
    const std::string pipe = std::filesystem::read_symlink("/proc/" + std::to_string(child) +
                                                           "/fd/" + std::to_string(descriptor));
    const int folder = ::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    bool spoiled = false;
    for (int mine = 0; mine < 1024; ++mine) {
        std::error_code error;
        const auto link =
            std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(mine), error);
        if (!error && link == pipe) {
            spoiled = ::dup3(folder, mine, O_CLOEXEC) == mine;
        }
    }
    ::close(folder);
    if (!spoiled) {
        throw std::runtime_error("the pipe was not found");
    }
}

/// A store over a real tool that ends itself at the first sample; how many samples it told.
int samplesUntilTheStoreEnds(Bridge& bridge)
{
    HeldScans held;
    auto live = std::make_unique<LiveData>(bridge.runner(), held.scans(), bridge.location);
    const QObject listener;
    int told = 0;
    QObject::connect(live.get(), &LiveData::statusChanged, &listener, [&] {
        ++told;
        live.reset();
    });
    live->retainStatus();
    pumpUntil([&] { return live == nullptr; });
    pumpOnce();
    return told;
}

} // namespace

TEST(StatusRun, AListenerMayEndTheStoreFromWithinTheFirstOfManyLines)
{
    Bridge bridge(R"(echo $$ > "$here/pid"; cat "$here/line" "$here/line" "$here/line"
exec sleep 1000)");
    EXPECT_EQ(samplesUntilTheStoreEnds(bridge), 1);
    pumpUntil([&] { return isGone(bridge.pid()); });
}

TEST(StatusRun, AListenerMayEndTheStoreFromWithinTheLastLineOfAToolThatHasEnded)
{
    Bridge bridge(R"(sleep 1000 & echo $! > "$here/pid"; echo sorry >&2
head -c -1 "$here/line")");
    EXPECT_EQ(samplesUntilTheStoreEnds(bridge), 1);
    pumpUntil([&] { return isGone(bridge.pid()); });
}

TEST(StatusRun, AReadThatFailsEndsTheStreamWithTheSystemsErrorAndACancelStillEndsTheTool)
{
    Bridge bridge(patient);
    const auto runner = bridge.runner();
    const auto stream = runner->statusStream(1s);
    ASSERT_TRUE(settled(stream->next()));
    spoilReading(bridge.pid(), STDOUT_FILENO);
    EXPECT_FALSE(settled(stream->next()));
    ASSERT_TRUE(stream->failure());
    EXPECT_TRUE(std::holds_alternative<SystemError>(*stream->failure()));
    EXPECT_FALSE(isGone(bridge.pid()));
    bridge.end(stream);
    EXPECT_TRUE(stream->failure());
}

TEST(StatusRun, AReadOfStandardErrorThatFailsDoesNotEndTheStream)
{
    Bridge bridge(patient);
    const auto runner = bridge.runner();
    const auto stream = runner->statusStream(1s);
    ASSERT_TRUE(settled(stream->next()));
    spoilReading(bridge.pid(), STDERR_FILENO);
    pumpOnce();
    bridge.tool.put("more", "");
    EXPECT_TRUE(settled(stream->next()));
    EXPECT_FALSE(stream->isFinished());
    bridge.end(stream);
}

TEST(StatusRun, AToolThatClosesItsStandardErrorGoesOn)
{
    Bridge bridge(std::string("exec 2>&-\n") + patient);
    const auto runner = bridge.runner();
    const auto stream = runner->statusStream(1s);
    ASSERT_TRUE(settled(stream->next()));
    bridge.tool.put("more", "");
    EXPECT_TRUE(settled(stream->next()));
    bridge.end(stream);
}

} // namespace zolva::test
