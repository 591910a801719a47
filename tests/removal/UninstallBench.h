#pragma once

#include "removal/RunBench.h"
#include "removal/runs/UninstallRun.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zolva::test {

inline UninstallApp app(const std::string& name)
{
    UninstallApp made;
    made.name = name;
    made.bundleID = "org." + name;
    made.path = "/Applications/" + name + ".app";
    return made;
}

inline ResidueRow row(std::string path, bool shared = false)
{
    ResidueRow made;
    made.p = std::move(path);
    made.shared = shared;
    return made;
}

class ListInMemory final : public ListedApps
{
public:
    std::optional<std::vector<UninstallApp>> apps;
    std::set<std::string> checked;
    std::optional<std::string> shown;
    std::vector<std::string> scanned;
    std::function<void()> onStore; ///< who hears of a change

    const std::vector<UninstallApp>* loaded() const override { return apps ? &*apps : nullptr; }
    std::set<std::string> checkedApps() const override { return checked; }
    std::optional<std::string> focused() const override { return shown; }
    void store(std::vector<UninstallApp> list) override
    {
        apps = std::move(list);
        if (onStore) {
            onStore();
        }
    }
    void clearChecked() override { checked.clear(); }
    void clearFocus() override { shown.reset(); }
    void focus(UninstallApp next) override
    {
        shown = next.id();
        scanned.push_back(next.name);
    }

    std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (const UninstallApp& held : *apps) {
            all.push_back(held.name);
        }
        return all;
    }
};

class ScriptedProcesses final : public AppProcesses
{
public:
    std::map<std::string, std::vector<RunningApp>> apps;
    bool stubborn = false; ///< nobody ends when asked
    std::vector<int> asked;
    std::function<void()> onTerminate;

    std::vector<RunningApp> running(const std::string& bundleID) override
    {
        std::vector<RunningApp> all;
        for (const RunningApp& instance : apps[bundleID]) {
            if (!isTerminated(instance)) {
                all.push_back(instance);
            }
        }
        return all;
    }
    void terminate(const RunningApp& instance) override
    {
        asked.push_back(instance.pid);
        if (onTerminate) {
            onTerminate();
        }
        if (!stubborn) {
            ended.insert(instance.pid);
        }
    }
    bool isTerminated(const RunningApp& instance) override { return ended.contains(instance.pid); }

    std::set<int> ended;
};

struct UninstallBench
{
    RunBench bench;
    ListInMemory list;
    ScriptedProcesses processes;
    std::map<std::string, std::vector<ResidueRow>> residue; ///< by name
    std::shared_ptr<std::vector<std::string>> scans = std::make_shared<std::vector<std::string>>();

    explicit UninstallBench(const std::vector<std::string>& names = {"One", "Two", "Three"})
    {
        list.apps.emplace();
        for (const std::string& name : names) {
            list.apps->push_back(app(name));
            bench.disk->put(app(name).path, 1000);
            residue[name] = {row("~/Caches/" + name), row(app(name).path)};
            bench.disk->put("~/Caches/" + name, 5000);
        }
    }

    UninstallTools tools()
    {
        return {bench.tools(), list, processes,
                [rows = residue, notes = scans](const UninstallApp& of,
                                                const std::vector<UninstallApp>& apps) {
                    std::string note = of.name + ":";
                    for (const UninstallApp& other : apps) {
                        note += " " + other.name;
                    }
                    notes->push_back(note);
                    const auto found = rows.find(of.name);
                    return found == rows.end() ? std::vector<ResidueRow>() : found->second;
                }};
    }

    void check(const std::vector<std::string>& names)
    {
        for (const std::string& name : names) {
            list.checked.insert(app(name).id());
        }
    }

    /// Runs to the end, with time going on whenever somebody waits for it.
    UninstallReport finish(QCoro::Task<UninstallReport> task)
    {
        pumpUntil([&] {
            // Short steps: toasts go by themselves in time.
            if (!task.isReady() && bench.clock.sleepers() > 0 && processes.stubborn) {
                bench.clock.advance(quitRound);
            }
            return task.isReady();
        });
        return settled(std::move(task));
    }
    UninstallReport uninstall() { return finish(uninstallChecked(tools())); }
};

} // namespace zolva::test
