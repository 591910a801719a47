#include "ctl/RemovalReport.h"

#include "files/DisplayPath.h"

#include <type_traits>
#include <variant>

namespace zolva::ctl {

namespace {

struct OutcomeCells
{
    const char* name;
    Json bytes = nullptr;
    Json text = nullptr;
};

OutcomeCells cellsOf(const TrashOutcome& outcome)
{
    struct Cells
    {
        OutcomeCells operator()(const TrashMoved& moved) const { return {"moved", moved.bytes}; }
        OutcomeCells operator()(const TrashRefused& refused) const
        {
            return {"refused", nullptr, displayText(refused.text)};
        }
        OutcomeCells operator()(const TrashFailed& failed) const
        {
            return {"failed", nullptr, displayText(failed.text)};
        }
        OutcomeCells operator()(const TrashAlreadyAbsent& /*absent*/) const
        {
            return {"alreadyAbsent"};
        }
    };
    return std::visit(Cells{}, outcome);
}

Exit exitOf(const RunReport& report)
{
    if (report.result.stopped) {
        return Exit::Stopped;
    }
    const bool kept = report.start == RunStart::OtherProcess || report.start == RunStart::Busy;
    return kept || hasTrouble(report.result) ? Exit::Failed : Exit::Done;
}

} // namespace

Json outcomeJson(const RunResult& result, const Json& toasts)
{
    Json rows = Json::array();
    for (const RunItem& item : result.items) {
        const OutcomeCells cells = cellsOf(item.attempt.outcome);
        Json& row = rows.emplace_back(Json::object());
        putPath(row, "path", item.path);
        row["outcome"] = cells.name;
        row["bytes"] = cells.bytes;
        row["text"] = cells.text;
        row["landed"] = textJson(item.attempt.landed);
        const auto raw = item.attempt.landed ? rawPath(*item.attempt.landed) : std::nullopt;
        if (raw) {
            row["landedRaw"] = *raw;
        }
    }
    return {{"outcomes", rows},
            {"purged", result.purged},
            {"problems", textsJson(result.problems)},
            {"freed", result.freed},
            {"stopped", result.stopped},
            {"toasts", toasts}};
}

Answer outcomeAnswer(const Request& request, RemovalSession& session, const RunReport& report)
{
    Answer answer;
    if (request.json) {
        answer = document(outcomeJson(report.result, session.toastsJson()));
    } else {
        answer.output = session.toastsText();
        if (answer.output.empty()) {
            answer.output = "Nothing to remove.\n";
        }
    }
    answer.code = exitOf(report);
    return report.start == RunStart::OtherProcess ? otherProcess(answer.output, request) : answer;
}

Answer otherProcess(const std::string& output, const Request& request)
{
    return {request.json ? output : std::string(), otherProcessText().toStdString(), Exit::Failed};
}

Answer declined(const Json& document, const Request& request)
{
    Answer answer = request.json ? ctl::document(document) : Answer{};
    answer.note = "nothing was done";
    answer.code = Exit::Stopped;
    return answer;
}

} // namespace zolva::ctl
