#pragma once

#include "core/Prefs.h"
#include "diagnostics/Log.h"

#include <memory>
#include <string>
#include <vector>

namespace zolva::ctl {

/// The user's settings as they are stored. Needs no event loop. Main thread.
class StoredPrefs
{
public:
    StoredPrefs();

    [[nodiscard]] Prefs& prefs() { return m_prefs; }
    /// Whether all that was written since it was made is on the disk; why not, the log has told.
    [[nodiscard]] bool written() const { return !m_unwritten; }

private:
    std::unique_ptr<PrefsStore> m_store;
    Prefs m_prefs;
    bool m_unwritten = false;
    ScopedLogSink m_sink;
};

/// The exclusion list as it is stored.
[[nodiscard]] std::vector<std::string> storedExclusions();

} // namespace zolva::ctl
