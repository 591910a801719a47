#include "ctl/CommandLine.h"

#include "core/PrefsMessages.h"
#include "ctl/Arguments.h"
#include "ctl/Commands.h"
#include "ctl/StoredPrefs.h"
#include "diagnostics/Log.h"
#include "files/DisplayPath.h"

#include <CLI/CLI.hpp>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace zolva::ctl {

namespace {

enum class Operands
{
    None,
    AtMostOne,
    Any,
    One,
    Many
};
enum class Extra
{
    None,
    List,
    Apps,
    AppsAndPath,
    Watch,
    Run,      ///< lists, or with "--run" removes
    Removal,  ///< what it removes may be kept in the Trash
    ForGood,  ///< what it removes cannot
    Uninstall ///< the same, of the applications that the tool lists
};

/// One command: how it is called, and what it does.
struct Command
{
    const char* name;
    const char* about;
    Operands operands;
    const char* operandName;
    Extra extra;
    Answer (*run)(const Request&);
    Answer (*remove)(const Request&) = nullptr; ///< in place of `run`, with "--run"
};

constexpr std::array commands = {
    Command{"summary", "What can be given back, in all", Operands::None, "", Extra::None, summary},
    Command{"analyze", "Where the space went: an overview, or one folder by its children",
            Operands::AtMostOne, "PATH", Extra::None, analyze},
    Command{"clean", "Caches, logs and other things that are rebuilt on demand", Operands::Any,
            "ID", Extra::Run, clean, runClean},
    Command{"purge", "Build artifacts in the project folders", Operands::Any, "KEY", Extra::Run,
            purge, runPurge},
    Command{"installers", "Disk images and packages left behind", Operands::Any, "PATH", Extra::Run,
            installers, runInstallers},
    Command{"trash", "Move each path to the Trash", Operands::Many, "PATH", Extra::Removal, trash},
    Command{"uninstall", "Remove applications, and what they left, for good", Operands::Many,
            "PATH", Extra::Uninstall, uninstall},
    Command{"put-back", "Put what lies in the Trash back to where it came from", Operands::Many,
            "NAME", Extra::None, putBack},
    Command{"trash-meter", "How much lies in the Trash", Operands::None, "", Extra::None,
            trashMeter},
    Command{"empty-trash", "Delete for good what lies in the Trash", Operands::None, "",
            Extra::ForGood, emptyTrash},
    Command{"apps", "The installed applications, with what their bundles tell", Operands::None, "",
            Extra::Apps, apps},
    Command{"leftovers", "What else on this disk belongs to an application", Operands::None, "",
            Extra::AppsAndPath, leftovers},
    Command{"blocked", "Places that exist and cannot be looked into", Operands::None, "",
            Extra::None, blocked},
    Command{"tally", "Files and bytes on disk below each path", Operands::Many, "PATH", Extra::None,
            tally},
    Command{"check", "Whether each path may be touched at all", Operands::Many, "PATH", Extra::None,
            check},
    Command{"excluded", "Whether the exclusion list covers each path", Operands::Many, "PATH",
            Extra::List, excluded},
    Command{"validate-exclusion", "Whether a text may be added to the exclusion list",
            Operands::One, "TEXT", Extra::List, validateExclusionText},
    Command{"size", "The text of each number of bytes", Operands::Many, "BYTES", Extra::None, size},
    Command{"status", "How the machine is doing", Operands::None, "", Extra::Watch, status},
    Command{"prefs", "The settings; \"set KEY VALUE\" changes one", Operands::Any, "CHANGE",
            Extra::None, prefs},
    Command{"exclusions", "What must never be touched; \"add TEXT\", \"remove ENTRY\" change it",
            Operands::Any, "CHANGE", Extra::None, exclusions},
    Command{"version", "The versions of the program and of the tool it asks", Operands::None, "",
            Extra::None, version},
};

struct WrongUsage : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

std::string valueOf(const CLI::App& app, const Arguments& arguments, const std::string& option)
{
    const auto& results = app.get_option(option)->results();
    if (results.empty()) {
        throw WrongUsage(option + " is required");
    }
    const auto value = arguments.value(results.front());
    if (!value) {
        throw WrongUsage(option + " needs a value");
    }
    return *value;
}

bool given(const CLI::App& app, const std::string& option)
{
    return app.get_option(option)->count() > 0;
}

/// All values given; what is no token stands for an empty list.
std::vector<std::string> valuesOf(const CLI::App& app, const Arguments& arguments,
                                  const std::string& option)
{
    std::vector<std::string> values;
    for (const std::string& token : app.get_option(option)->results()) {
        if (auto value = arguments.value(token)) {
            values.push_back(*std::move(value));
        }
    }
    return values;
}

/// Values are taken from the results as they were parsed, so nothing is converted here.
CLI::Option* addValue(CLI::App& app, const std::string& name, const std::string& about)
{
    return app.add_option(name, CLI::callback_t([](const CLI::results_t&) { return true; }), about);
}

bool takesApps(const Command& command)
{
    return command.extra == Extra::Apps || command.extra == Extra::AppsAndPath ||
           command.extra == Extra::Uninstall;
}

bool removes(const Command& command)
{
    return command.extra == Extra::Run || command.extra == Extra::Removal ||
           command.extra == Extra::ForGood || command.extra == Extra::Uninstall;
}

bool mayKeep(const Command& command)
{
    return command.extra == Extra::Run || command.extra == Extra::Removal;
}

void addRemovalFlags(CLI::App& sub, const Command& command)
{
    if (command.extra == Extra::Run) {
        sub.add_flag("--run")->description(std::string("Remove what is listed, or each ") +
                                           command.operandName + " of it");
    }
    sub.add_flag("--yes")->description("Do not ask");
    sub.add_flag("--dry-run")->description("Show what would go, and touch nothing");
    if (mayKeep(command)) {
        sub.add_flag("--permanent")->description("Delete for good what was moved to the Trash");
    }
}

/// Of a command that also only lists, all of it is about the removal.
void readRemoval(const CLI::App& sub, const Command& command, Request& request)
{
    request.run = command.extra != Extra::Run || given(sub, "--run");
    request.yes = given(sub, "--yes");
    request.dryRun = given(sub, "--dry-run");
    request.permanent = mayKeep(command) && given(sub, "--permanent");
    const bool asksRemoval = request.yes || request.dryRun || request.permanent;
    if (!request.run && (asksRemoval || !request.operands.empty())) {
        throw WrongUsage(std::string(command.name) + " only lists without --run");
    }
}

void addCommand(CLI::App& app, const Command& command)
{
    CLI::App* sub = app.add_subcommand(command.name, command.about);
    sub->fallthrough();
    sub->group("Commands");
    sub->footer("With --json it prints one JSON document.");
    const int any = CLI::detail::expected_max_vector_size;
    if (command.operands != Operands::None) {
        const bool many = command.operands == Operands::Many || command.operands == Operands::Any;
        CLI::Option* operands = addValue(*sub, command.operandName, "");
        operands->expected(1, many ? any : 1)->allow_extra_args(many)->type_name("");
        operands->required(command.operands == Operands::One || command.operands == Operands::Many);
    }
    if (command.extra == Extra::List) {
        addValue(*sub, "--list", "the entries of the exclusion list (the stored one without it)")
            ->expected(1, any)
            ->allow_extra_args()
            ->type_name("ENTRY");
    }
    if (takesApps(command)) {
        addValue(*sub, "--apps",
                 "a file that holds the list as `mo uninstall --list` prints it (mo is asked "
                 "without it)")
            ->type_name("FILE");
    }
    if (command.extra == Extra::AppsAndPath) {
        addValue(*sub, "--path", "the bundle of the application, as the list has it")
            ->type_name("BUNDLE");
    }
    if (removes(command)) {
        addRemovalFlags(*sub, command);
    }
    if (command.extra == Extra::Watch) {
        sub->add_flag("--watch")->description("Go on with every new reading, until Ctrl-C");
        addValue(*sub, "--interval",
                 "seconds between two readings, 1 to 60 (those of the settings without it)")
            ->type_name("N");
    }
}

Request requestOf(const CLI::App& app, const Command& command, const Arguments& arguments)
{
    Request request;
    const CLI::App& sub = *app.get_subcommand(command.name);
    if (command.operands != Operands::None) {
        request.operands = valuesOf(sub, arguments, command.operandName);
    }
    if (command.extra == Extra::List && given(sub, "--list")) {
        request.list = valuesOf(sub, arguments, "--list");
    }
    if (takesApps(command) && given(sub, "--apps")) {
        request.appsFile = valueOf(sub, arguments, "--apps");
    }
    if (command.extra == Extra::AppsAndPath) {
        request.bundle = valueOf(sub, arguments, "--path");
    }
    if (command.extra == Extra::Watch) {
        request.watch = given(sub, "--watch");
        if (given(sub, "--interval")) {
            request.interval = valueOf(sub, arguments, "--interval");
        }
    }
    if (removes(command)) {
        readRemoval(sub, command, request);
    }
    request.json = app.get_option("--json")->count() > 0;
    request.now = std::chrono::system_clock::now();
    request.look = lookOf(STDOUT_FILENO);
    return request;
}

Answer wrongUsage(const std::string& message)
{
    return {{}, message + "\nSee zolvactl --help.", Exit::WrongUsage};
}

bool isCommand(const std::string& name)
{
    return std::any_of(commands.begin(), commands.end(),
                       [&](const Command& command) { return name == command.name; });
}

std::string withoutCommand(const std::string& name)
{
    return name.empty() ? "a command is needed" : "there is no command " + displayLine(name);
}

std::string unexpected(const std::vector<std::string>& tokens, const Arguments& arguments)
{
    std::string message = "not expected:";
    for (const std::string& token : tokens) {
        message += " " + displayLine(arguments.value(token).value_or(token));
    }
    return message;
}

void complain(const std::string& message)
{
    // Nowhere is left to tell that even this could not be told.
    static_cast<void>(writeAll(STDERR_FILENO, "zolvactl: " + message + "\n"));
}

/// Why the removal cannot begin: what never to touch is not known. What else is not as the user
/// left it is only told.
std::optional<Answer> exclusionsUnknown()
{
    const PrefsTrouble trouble = StoredPrefs().prefs().trouble();
    const std::optional<std::string> text = prefsTroubleText(trouble);
    if (text && trouble.unread.empty()) {
        complain(displayLine(*text));
        return std::nullopt;
    }
    return text ? std::optional(Answer{{}, displayLine(*text), Exit::Failed}) : std::nullopt;
}

Answer answerOf(const Command& command, const Request& request)
{
    if (!request.run) {
        return command.run(request);
    }
    // The Trash is emptied whatever is excluded.
    if (command.extra != Extra::ForGood) {
        if (const auto refusal = exclusionsUnknown()) {
            return *refusal;
        }
    }
    return command.remove ? command.remove(request) : command.run(request);
}

Answer answerTo(const Arguments& arguments)
{
    CLI::App app("Shows where disk space went, and what of it can be given back safely.",
                 "zolvactl");
    app.add_flag("--json")->description("Print one JSON document");
    app.set_version_flag("--version", "zolvactl " ZOLVA_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.footer("Each command tells its own arguments with --help.");
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.require_subcommand(1);
    for (const Command& command : commands) {
        addCommand(app, command);
    }
    try {
        app.parse(arguments.reversedTokens());
        for (const Command& command : commands) {
            if (app.got_subcommand(command.name)) {
                return answerOf(command, requestOf(app, command, arguments));
            }
        }
    } catch (const CLI::CallForHelp&) {
        return {app.help(), {}, Exit::Done};
    } catch (const CLI::CallForVersion& version) {
        return {std::string(version.what()) + "\n", {}, Exit::Done};
    } catch (const CLI::ExtrasError&) {
        return wrongUsage(unexpected(app.remaining(true), arguments));
    } catch (const CLI::ParseError& error) {
        return wrongUsage(isCommand(arguments.command()) ? arguments.readable(error.what())
                                                         : withoutCommand(arguments.command()));
    } catch (const WrongUsage& error) {
        return wrongUsage(error.what());
    }
    return wrongUsage(withoutCommand({}));
}

/// What went wrong on the way, which no answer tells.
void tell(const LogRecord& record)
{
    if (record.level == LogLevel::Error || record.level == LogLevel::Fault) {
        complain(displayLine(record.message));
    }
}

void complainOf(const Answer& answer)
{
    if (!answer.note.empty()) {
        complain(answer.note);
    }
}

} // namespace

std::vector<std::string> Request::exclusionList() const
{
    return list ? *list : storedExclusions();
}

Answer unwritten(int error)
{
    return {{}, "cannot write the answer: " + std::generic_category().message(error), Exit::Failed};
}

int run(int argc, char** argv)
{
    // A reader that went away is an error of writing, with a message, and no sudden death.
    std::signal(SIGPIPE, SIG_IGN);
    logToSystem();
    const ScopedLogSink notes(tell);
    Answer answer;
    try {
        answer = answerTo(Arguments(argc, argv));
    } catch (const std::exception& error) {
        answer = {{}, displayLine(error.what()), Exit::Failed};
    }
    complainOf(answer);
    if (const int error = writeAll(STDOUT_FILENO, answer.output)) {
        answer = unwritten(error);
        complainOf(answer);
    }
    return static_cast<int>(answer.code);
}

} // namespace zolva::ctl
