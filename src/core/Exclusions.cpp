#include "core/Exclusions.h"

#include "files/ExclusionRules.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zolva {

Exclusions::Exclusions(QObject* parent) : QObject(parent) {}

void Exclusions::setWhitelist(std::vector<std::string> list)
{
    m_whitelist = std::move(list);
    Q_EMIT whitelistChanged();
}

void Exclusions::setWlDraft(std::string draft)
{
    if (m_wlDraft == draft) {
        return;
    }
    m_wlDraft = std::move(draft);
    Q_EMIT wlDraftChanged();
}

std::optional<std::string> Exclusions::exclusionError() const
{
    // An empty field shows no complaint.
    return m_wlDraft.empty() ? std::nullopt : validateExclusion(m_wlDraft, m_whitelist);
}

void Exclusions::addExclusion()
{
    if (validateExclusion(m_wlDraft, m_whitelist)) {
        return;
    }
    m_whitelist.push_back(storedExclusion(m_wlDraft));
    Q_EMIT whitelistChanged();
    setWlDraft({});
}

void Exclusions::removeExclusion(const std::string& entry)
{
    // The text may be one of the list's own, so it must outlive the change.
    std::vector<std::string> kept;
    std::copy_if(m_whitelist.begin(), m_whitelist.end(), std::back_inserter(kept),
                 [&entry](const std::string& one) { return one != entry; });
    m_whitelist = std::move(kept);
    Q_EMIT whitelistChanged();
}

} // namespace zolva
