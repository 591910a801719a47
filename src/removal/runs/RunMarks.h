#pragma once

#include "removal/runs/RunTools.h"

#include <cstddef>
#include <string_view>

/// What is there exactly while a run is going, taken back on every way out. A run whose state is
/// gone was cut short: its journal stays, so that the next start tells of it.
namespace zolva {

/// `bulk`, from the first phase to `end`.
class BulkMark
{
public:
    BulkMark(QPointer<RunState> state, const char* title, std::size_t total);
    ~BulkMark() { end(); }
    BulkMark(const BulkMark&) = delete;
    BulkMark& operator=(const BulkMark&) = delete;

    void enterPhase(const char* title, std::size_t total) const;
    void end();

private:
    QPointer<RunState> m_state;
};

/// The run journal.
class JournalMark
{
public:
    JournalMark(const RunTools& tools, std::string_view label, std::size_t paths);
    ~JournalMark() { end(); }
    JournalMark(const JournalMark&) = delete;
    JournalMark& operator=(const JournalMark&) = delete;

    void end();

private:
    QPointer<RunState> m_state;
    std::string m_folder;
};

} // namespace zolva
