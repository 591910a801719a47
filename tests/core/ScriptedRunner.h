#pragma once

#include "core/LiveScans.h"
#include "core/Mailbox.h"
#include "core/MoRunner.h"

#include <QCoroTask>

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

/// Calls that end when the test says so, in any order, each with the value the test gives. What is
/// never answered ends with this object, so it is declared before whoever asks.
template <typename T>
class HeldCalls
{
public:
    ~HeldCalls()
    {
        for (const Mailbox<T>& call : m_calls) {
            call.close();
        }
    }

    [[nodiscard]] std::size_t count() const { return m_calls.size(); }
    void answer(std::size_t call, T value) const { m_calls.at(call).send(std::move(value)); }

    QCoro::Task<T> ask()
    {
        m_calls.emplace_back();
        return answerTo(m_calls.back());
    }

private:
    static QCoro::Task<T> answerTo(Mailbox<T> call)
    {
        std::optional<T> value = co_await call.next();
        co_return value ? std::move(*value) : T{};
    }

    std::vector<Mailbox<T>> m_calls;
};

/// What a scripted runner was asked for, and its answers. It outlives the runner.
struct RunnerScript
{
    std::vector<std::chrono::seconds> intervals;      ///< one for each stream
    std::vector<std::weak_ptr<StatusStream>> streams; ///< gone once the reader has let go
    int stopped = 0;                                  ///< streams that their reader has ended
    HeldCalls<AppList> lists;

    [[nodiscard]] std::shared_ptr<StatusStream> newest() const { return streams.back().lock(); }
};

/// A bridge without a tool.
class ScriptedRunner final : public MoRunner
{
public:
    explicit ScriptedRunner(RunnerScript& script) : m_script(script) {}

    std::shared_ptr<StatusStream> statusStream(std::chrono::seconds interval) override
    {
        auto stream = std::make_shared<StatusStream>();
        stream->onCancel([&script = m_script] { ++script.stopped; });
        m_script.intervals.push_back(interval);
        m_script.streams.push_back(stream);
        return stream;
    }
    QCoro::Task<AppList> listApps() override { return m_script.lists.ask(); }

private:
    RunnerScript& m_script;
};

/// Scans that end when the test says so, and what they were asked for.
struct HeldScans
{
    HeldCalls<std::vector<Category>> clean;
    HeldCalls<std::vector<Project>> purge;
    HeldCalls<std::vector<UninstallApp>> enrich;
    HeldCalls<std::vector<ResidueRow>> residue;
    HeldCalls<Analysis> analyze;
    std::vector<std::vector<UninstallApp>> enriched;
    std::vector<std::pair<UninstallApp, std::vector<UninstallApp>>> residues;
    std::vector<std::string> analyzed;

    [[nodiscard]] LiveScans scans()
    {
        LiveScans all;
        all.clean = [this] { return clean.ask(); };
        all.purge = [this] { return purge.ask(); };
        all.enrich = [this](std::vector<UninstallApp> apps) {
            enriched.push_back(std::move(apps));
            return enrich.ask();
        };
        all.residue = [this](UninstallApp app, std::vector<UninstallApp> apps) {
            residues.emplace_back(std::move(app), std::move(apps));
            return residue.ask();
        };
        all.analyze = [this](std::string path) {
            analyzed.push_back(std::move(path));
            return analyze.ask();
        };
        return all;
    }
};

} // namespace zolva::test
