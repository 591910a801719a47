#include "ctl/RemovalPlan.h"

#include "ctl/JsonText.h"
#include "ctl/Progress.h"
#include "ctl/Table.h"
#include "files/DisplayPath.h"
#include "files/FolderTally.h"
#include "files/PathGuards.h"
#include "files/SizeText.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

namespace zolva::ctl {

namespace {

/// So many rows are shown before a question; the rest is counted.
constexpr std::size_t shownAtMost = 25;

std::string planText(const Plan& plan, std::size_t atMost, const Look& look)
{
    Table table({{"SIZE", Side::Right}, {"PATH"}, {}});
    const std::size_t shown = std::min(plan.size(), atMost);
    for (std::size_t i = 0; i < shown; ++i) {
        const PlannedItem& item = plan[i];
        table.row({{sizeText(item.bytes), Ink::Strong},
                   {displayLine(item.path)},
                   {item.refusal ? "stays: " + displayLine(*item.refusal) : "", Ink::Bad}});
    }
    std::string text = table.text(look);
    if (plan.size() > shown) {
        text += "  … and " + countText(static_cast<std::int64_t>(plan.size() - shown)) + " more\n";
    }
    return text;
}

/// One line of standard input, without its end; nothing where it ends or the program is to end.
std::optional<std::string> readLine(const StopSignals& stop)
{
    std::string line;
    for (;;) {
        std::array<pollfd, 2> ends = {{{STDIN_FILENO, POLLIN, 0}, {stop.descriptor(), POLLIN, 0}}};
        if (::poll(ends.data(), ends.size(), -1) < 0 && errno != EINTR) {
            return std::nullopt;
        }
        if (ends[1].revents != 0) {
            return std::nullopt;
        }
        if (ends[0].revents == 0) {
            continue;
        }
        char next = 0;
        const ssize_t got = ::read(STDIN_FILENO, &next, 1);
        if (got == 0 || (got < 0 && errno != EINTR)) {
            return std::nullopt;
        }
        if (got == 1 && next == '\n') {
            return line;
        }
        if (got == 1 && next != '\r') {
            line += next;
        }
    }
}

bool isYes(std::string line)
{
    std::transform(line.begin(), line.end(), line.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return line == "y" || line == "yes";
}

} // namespace

PlannedItem planned(std::string path, std::int64_t bytes)
{
    std::optional<std::string> refusal = pathRefusal(path);
    return {std::move(path), bytes, std::move(refusal)};
}

bool isShown(const Request& request)
{
    return request.dryRun || !request.yes;
}

std::vector<std::int64_t> sizesToShow(const Request& request, const std::vector<std::string>& paths)
{
    std::vector<std::int64_t> sizes(paths.size(), 0);
    if (isShown(request)) {
        Progress progress;
        const std::vector<Tally> tallies = folderTallies(paths, progress.teller());
        std::transform(tallies.begin(), tallies.end(), sizes.begin(),
                       [](const Tally& tally) { return tally.bytes; });
    }
    return sizes;
}

std::optional<Answer> nobodyToAsk(const Request& request)
{
    const bool canAsk = ::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1;
    if (request.yes || request.dryRun || canAsk) {
        return std::nullopt;
    }
    return Answer{{},
                  "there is no terminal to ask on; --yes answers, --dry-run shows what would go",
                  Exit::WrongUsage};
}

Answer wouldAnswer(const Request& request, const Plan& plan)
{
    if (request.json) {
        Json rows = Json::array();
        for (const PlannedItem& item : plan) {
            Json& row = rows.emplace_back(Json::object());
            putPath(row, "path", item.path);
            row["bytes"] = item.bytes;
            row["refusal"] = textJson(item.refusal);
        }
        return document({{"would", rows}});
    }
    if (plan.empty()) {
        return {"Nothing would go.\n", {}, {}};
    }
    return {planText(plan, plan.size(), request.look) + "\nWould go: " + amountText(plan) + "\n",
            {},
            {}};
}

std::string amountText(const Plan& plan)
{
    std::int64_t count = 0;
    std::int64_t bytes = 0;
    for (const PlannedItem& item : plan) {
        if (!item.refusal) {
            ++count;
            bytes += item.bytes;
        }
    }
    return counted(count, "item") + " (" + sizeText(bytes) + ")";
}

bool nothingGoes(const Plan& plan)
{
    return std::all_of(plan.begin(), plan.end(),
                       [](const PlannedItem& item) { return item.refusal.has_value(); });
}

bool confirmed(const Request& request, const Plan& plan, const std::string& question,
               const StopSignals& stop)
{
    if (request.yes) {
        return !stop.wasAsked();
    }
    const std::string rows =
        plan.empty() ? std::string() : planText(plan, shownAtMost, lookOf(STDERR_FILENO)) + "\n";
    if (writeAll(STDERR_FILENO, rows + question + " [y/N] ") != 0) {
        return false;
    }
    const std::optional<std::string> line = readLine(stop);
    if (!line) {
        // The cursor still stands behind the question.
        static_cast<void>(writeAll(STDERR_FILENO, "\n"));
    }
    return line && isYes(*line);
}

} // namespace zolva::ctl
