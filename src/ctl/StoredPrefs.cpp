#include "ctl/StoredPrefs.h"

#include "core/SystemPrefsStore.h"

#include <string_view>

namespace zolva::ctl {

namespace {

bool tellsOfAFailedWrite(const LogRecord& record)
{
    const std::string_view format = logformat::preferencesUnwritten.text;
    return record.message.starts_with(format.substr(0, format.find('%')));
}

} // namespace

StoredPrefs::StoredPrefs()
    : m_store(systemPrefsStore()), m_prefs(*m_store), m_sink([this](const LogRecord& record) {
          m_unwritten = m_unwritten || tellsOfAFailedWrite(record);
      })
{}

std::vector<std::string> storedExclusions()
{
    return StoredPrefs().prefs().whitelist();
}

} // namespace zolva::ctl
