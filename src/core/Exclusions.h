#pragma once

#include <QObject>

#include <optional>
#include <string>
#include <vector>

namespace zolva {

/// The user's list "Never touch these", and what is being typed for it. Whoever owns it saves the
/// list at each `whitelistChanged`. Guards read the list when they run; a run that has begun keeps
/// the one it took. Main thread.
class Exclusions : public QObject
{
    Q_OBJECT

public:
    explicit Exclusions(QObject* parent = nullptr);

    /// In the order of entry; the home folder is written "~".
    [[nodiscard]] const std::vector<std::string>& whitelist() const { return m_whitelist; }
    /// The whole list, as it was stored; nothing is looked at.
    void setWhitelist(std::vector<std::string> list);

    [[nodiscard]] const std::string& wlDraft() const { return m_wlDraft; }
    void setWlDraft(std::string draft);

    /// What is wrong with the draft, as a text for the user; nothing for a good or an empty one.
    [[nodiscard]] std::optional<std::string> exclusionError() const;

    /// Takes the draft into the list and clears it; one that may not enter stays where it is.
    void addExclusion();
    /// Takes every entry equal to the text out of the list.
    void removeExclusion(const std::string& entry);

Q_SIGNALS:
    /// Also when the list was set to what it was.
    void whitelistChanged();
    void wlDraftChanged();

private:
    std::vector<std::string> m_whitelist;
    std::string m_wlDraft;
};

} // namespace zolva
