#pragma once

#include "core/AppModel.h"
#include "core/ScriptedRunner.h"

#include "removal/UninstallBench.h"

#include "support/RecordingTrash.h"
#include "support/qt/ManualClock.h"

#include <QMetaMethod>

#include <cstdint>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

/// What happened, in order.
using Steps = std::vector<std::string>;

/// Settings in memory, that note every key that is looked up, and every write by itself.
class RecordingStore final : public PrefsStore
{
public:
    using Written = std::vector<std::pair<std::string, PrefValue>>;

    explicit RecordingStore(Steps& steps) : m_steps(steps) {}

    bool has(const std::string& key) override
    {
        note(key);
        return values.contains(key);
    }
    bool boolean(const std::string& key) override { return read<bool>(key).value_or(false); }
    std::int64_t wholeNumber(const std::string& key) override
    {
        return read<std::int64_t>(key).value_or(0);
    }
    double number(const std::string& key) override { return read<double>(key).value_or(0); }
    std::optional<std::string> text(const std::string& key) override
    {
        return read<std::string>(key);
    }
    std::optional<std::vector<std::string>> texts(const std::string& key) override
    {
        return read<std::vector<std::string>>(key);
    }
    PrefsTrouble trouble() override { return told; }
    /// A change of a list is noted as the list that comes of it.
    void write(const Written& all) override
    {
        writes.push_back(all);
        for (auto& [key, value] : writes.back()) {
            if (const auto* const change = std::get_if<TextsChange>(&value)) {
                const auto* const list = std::get_if<std::vector<std::string>>(&values[key]);
                value = changed(list ? *list : std::vector<std::string>(), *change);
            }
            values[key] = value;
        }
    }

    PrefsTrouble told;
    std::map<std::string, PrefValue> values;
    std::vector<Written> writes;

private:
    template <typename T>
    std::optional<T> read(const std::string& key)
    {
        note(key);
        const auto found = values.find(key);
        const T* const value = found == values.end() ? nullptr : std::get_if<T>(&found->second);
        return value ? std::optional<T>(*value) : std::nullopt;
    }
    void note(const std::string& key)
    {
        const std::string step = "read " + key;
        if (m_steps.empty() || m_steps.back() != step) {
            m_steps.push_back(step);
        }
    }

    Steps& m_steps;
};

/// A desktop whose colours the test chooses.
class ScriptedAppearance final : public SystemAppearance
{
public:
    explicit ScriptedAppearance(Steps& steps) : m_steps(steps) {}

    std::optional<bool> isDark() const override
    {
        m_steps.emplace_back("appearance read");
        return dark;
    }

    std::optional<bool> dark;

protected:
    void connectNotify(const QMetaMethod& signal) override
    {
        if (signal == QMetaMethod::fromSignal(&SystemAppearance::changed)) {
            m_steps.emplace_back("appearance watched");
        }
    }

private:
    Steps& m_steps;
};

/// A whole model over fakes that note what it does, and answer when the test says so. It is not
/// built before `start`, and then finds the home folder that the test has set.
struct ModelWorld
{
    using Blocked = std::vector<diskAccess::Location>;

    /// The folder takes the run journal.
    explicit ModelWorld(std::string logs) : logFolder(std::move(logs)) {}

    /// With what the test has prepared until here.
    AppModel& start(StartSteps which = {})
    {
        model.reset();
        model = std::make_unique<AppModel>(dependencies(which));
        return *model;
    }

    AppDependencies dependencies(StartSteps which = {})
    {
        return {
            .clock = clock,
            .prefs = store,
            .runner = std::make_unique<ScriptedRunner>(script),
            .mo = {"/nowhere/mole", MoLocation::Kind::Shipped},
            .scans = held.scans(),
            .reads = {.installers = [this] { return installers.ask(); },
                      .blockedLocations =
                          [this] {
                              steps.emplace_back("access probed");
                              return probes.ask();
                          },
                      .volumeName = [this] { return volumeName; }},
            .disk = {.disk = disk,
                     .space =
                         [this] {
                             steps.emplace_back("space read");
                             return volumeSpace;
                         },
                     .processes = std::make_unique<ScriptedProcesses>(),
                     .scanResidue = [](const UninstallApp&, const std::vector<UninstallApp>&)
                         -> std::vector<ResidueRow> { return {}; }},
            .logFolder = logFolder,
            .crashCapture =
                [this](const std::string& folder) {
                    steps.push_back("crashes caught in " + folder);
                },
            .appearance = &appearance,
            .doors = {
                .accessSettings = [this] { steps.emplace_back("access settings opened"); },
                .logFolder = [this] { steps.emplace_back("log folder opened"); },
                .trash = [this] { steps.emplace_back("Trash opened"); },
                .page = [this](const std::string& url) { steps.push_back("page " + url); },
                .reveal = [this](const std::string& path) { steps.push_back("revealed " + path); },
                .toolLicense = [this] { steps.emplace_back("license opened"); }},
            .updates = {bundle,
                        [this](const QUrl& url, const std::string& key, std::int64_t build,
                               const std::stop_token& /*stop*/) {
                            steps.push_back("update check of " + url.toString().toStdString() +
                                            " with " + key + " for " + std::to_string(build));
                            return updateChecks.ask();
                        }},
            .steps = which};
    }

    /// A program whose resources, in the folder, hold a feed that can be used.
    static AppBundle bundleWithFeed(const std::string& folder)
    {
        std::ofstream(folder + "/UpdateConfig.plist")
            << R"(<?xml version="1.0"?><plist version="1.0"><dict>)"
               R"(<key>ManifestURL</key><string>https://example.org/feed</string>)"
               R"(<key>PublicKey</key><string>KEY</string></dict></plist>)";
        return {.shortVersion = "0.1.0", .version = "5", .resourceFolders = {folder}};
    }
    static Blocked blocked(const std::vector<std::string>& labels)
    {
        Blocked all;
        for (const std::string& label : labels) {
            all.push_back({label, label, "/home/" + label});
        }
        return all;
    }
    static Category category(const std::string& name)
    {
        Category one;
        one.id = one.name = name;
        return one;
    }
    static Project project(const std::string& path)
    {
        Project one;
        one.p = path;
        one.artifact = "build";
        return one;
    }
    static InstallerItem installer(const std::string& path)
    {
        InstallerItem one;
        one.p = path;
        return one;
    }

    std::string logFolder;
    std::string volumeName = "Quiet Disk";
    VolumeSpace volumeSpace{100, 200};
    Steps steps;
    ManualClock clock;
    RecordingStore store{steps};
    ScriptedAppearance appearance{steps};
    std::optional<AppBundle> bundle; ///< without one there are no updates
    HeldCalls<UpdateCheckResult> updateChecks;
    RunnerScript script;
    HeldScans held;
    HeldCalls<std::vector<InstallerItem>> installers;
    HeldCalls<Blocked> probes;
    std::shared_ptr<RecordingTrash> disk = std::make_shared<RecordingTrash>();
    std::unique_ptr<AppModel> model;
};

} // namespace zolva::test
