#include "core/Exclusions.h"
#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/StoredPrefs.h"
#include "files/DisplayPath.h"
#include "files/ExclusionRules.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zolva::ctl {

namespace {

constexpr const char* notInTheList = "Not in the list.";

/// What became of one text.
struct Result
{
    std::string text;
    std::optional<std::string> message;
};

Answer wrongUsage(const std::string& note)
{
    return {{}, "exclusions: " + note, Exit::WrongUsage};
}

std::optional<std::string> added(Exclusions& exclusions, const std::string& text)
{
    std::optional<std::string> message = validateExclusion(text, exclusions.whitelist());
    if (!message) {
        exclusions.setWlDraft(text);
        exclusions.addExclusion();
    }
    return message;
}

/// The entry as it is shown, or as a shell makes it of that: a full path.
std::optional<std::string> removed(Exclusions& exclusions, const std::string& text)
{
    const bool isPath = !validateExclusion(text, {});
    for (const std::string& entry : {text, isPath ? storedExclusion(text) : text}) {
        const std::vector<std::string>& list = exclusions.whitelist();
        if (std::find(list.begin(), list.end(), entry) != list.end()) {
            exclusions.removeExclusion(entry);
            return std::nullopt;
        }
    }
    return notInTheList;
}

Json resultsJson(const std::vector<std::string>& list, const std::vector<Result>& results)
{
    Json json = {{"whitelist", textsJson(list)}};
    putRaw(json, list);
    json["messages"] = Json::array();
    for (const Result& result : results) {
        Json& row = json["messages"].emplace_back(Json::object());
        putPath(row, "text", result.text);
        row["message"] = textJson(result.message);
    }
    return json;
}

std::string listText(const std::vector<std::string>& list, const Look& look)
{
    if (list.empty()) {
        return "Nothing is excluded.\n";
    }
    std::string text = "Never touch these:\n";
    for (const std::string& entry : list) {
        text += "  " + painted(displayLine(entry), Ink::Strong, look) + "\n";
    }
    return text;
}

Answer answerOf(const std::vector<std::string>& list, const std::vector<Result>& results, Exit code,
                const Request& request)
{
    if (request.json) {
        Answer answer = document(resultsJson(list, results));
        answer.code = code;
        return answer;
    }
    std::string note;
    for (const Result& result : results) {
        if (result.message) {
            note += (note.empty() ? "" : "\n") + displayLine(result.text) + ": " +
                    displayLine(*result.message);
        }
    }
    return {listText(list, request.look), note, code};
}

} // namespace

Answer exclusions(const Request& request)
{
    StoredPrefs stored;
    if (request.operands.empty()) {
        const bool isKnown = stored.prefs().trouble().unread.empty();
        return answerOf(stored.prefs().whitelist(), {}, isKnown ? Exit::Done : Exit::Failed,
                        request);
    }
    const std::string& change = request.operands.front();
    const bool adds = change == "add";
    if (!adds && change != "remove") {
        return wrongUsage("not expected: " + displayLine(change));
    }
    if (request.operands.size() < 2) {
        return wrongUsage(adds ? "add takes a TEXT" : "remove takes an ENTRY");
    }
    const Settings before = stored.prefs().load();
    Exclusions list;
    list.setWhitelist(before.whitelist);
    std::vector<Result> results;
    bool refused = false;
    for (auto text = request.operands.begin() + 1; text != request.operands.end(); ++text) {
        results.push_back({*text, adds ? added(list, *text) : removed(list, *text)});
        refused = refused || (adds && results.back().message);
    }
    // A list that cannot be read has no entries to look for: the write says why.
    const bool isUnread = !stored.prefs().trouble().unread.empty();
    if (isUnread || list.whitelist() != before.whitelist) {
        Settings settings = before;
        settings.whitelist = list.whitelist();
        stored.prefs().saveChanges(before, settings);
    }
    if (!stored.written()) {
        return {{}, {}, Exit::Failed};
    }
    return answerOf(stored.prefs().whitelist(), results, refused ? Exit::Failed : Exit::Done,
                    request);
}

} // namespace zolva::ctl
