#include "removal/runs/RunMarks.h"

#include "diagnostics/RunJournal.h"

#include <utility>

namespace zolva {

BulkMark::BulkMark(QPointer<RunState> state, const char* title, std::size_t total)
    : m_state(std::move(state))
{
    enterPhase(title, total);
}

void BulkMark::enterPhase(const char* title, std::size_t total) const
{
    if (m_state) {
        m_state->setBulk(
            BulkProgress{QString::fromUtf8(title), static_cast<std::int64_t>(total), 0, {}});
    }
}

void BulkMark::end()
{
    if (const QPointer<RunState> state = std::exchange(m_state, nullptr)) {
        state->setBulk(std::nullopt);
    }
}

JournalMark::JournalMark(const RunTools& tools, std::string_view label, std::size_t paths)
    : m_state(tools.state), m_folder(tools.journalFolder)
{
    journalBegin(m_folder, label, paths, tools.clock.now());
}

void JournalMark::end()
{
    if (std::exchange(m_state, nullptr)) {
        journalClear(m_folder);
    }
}

} // namespace zolva
