#pragma once

#include "removal/runs/RemovalDisk.h"

#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace zolva::test {

/// A disk that stands in memory: what is on it, what it refuses, and a record of all that was done
/// to it. It logs what the real one logs. Things land in "/trash", under their own names.
class RecordingTrash final : public RemovalDisk
{
public:
    // What is on it.
    void put(const std::string& path, std::int64_t bytes);
    void take(const std::string& path);
    void putInTrash(const std::string& name, std::int64_t bytes);
    // What it does not do.
    void refuse(const std::string& path, const std::string& text);
    void fail(const std::string& path, const std::string& text);
    void failPurge(const std::string& name, const std::string& text);
    void failDelete(const std::string& name, const std::string& text);
    void failPutBack(const std::string& text);
    void tellNoLanding(const std::string& path);
    void allowAdmin(const std::string& path);
    void setUnreadable(bool unreadable);
    /// Called in the background before the path is moved.
    void beforeMove(std::function<void(const std::string&)> hook);
    /// In place of the sum of all entries.
    void setMeasure(std::function<std::int64_t(const std::atomic<bool>&)> measure);

    /// Everything that would change a disk, in order: "trash /a", "purge /trash/a", "admin /a",
    /// "move /a", "back /a", "delete a".
    [[nodiscard]] std::vector<std::string> changes() const;
    [[nodiscard]] int listings() const;
    [[nodiscard]] int measures() const;

    [[nodiscard]] TrashAttempt trashOnePath(const std::string& path) override;
    [[nodiscard]] Purge purgeFromTrash(const std::vector<KnownItem>& landed) override;
    [[nodiscard]] bool adminMoveToTrash(const std::string& path) override;
    [[nodiscard]] Move moveToTrash(const std::string& path) override;
    [[nodiscard]] std::optional<std::string> putBack(const KnownItem& landed,
                                                     const std::string& destination) override;
    [[nodiscard]] bool exists(const std::string& path) override;
    [[nodiscard]] std::string trashFolder() override { return "/trash"; }
    [[nodiscard]] std::string preparedTrashFolder() override { return "/trash"; }
    [[nodiscard]] std::optional<std::int64_t> trashCount() override;
    [[nodiscard]] std::optional<std::vector<KnownItem>> listTrash() override;
    [[nodiscard]] std::int64_t measureTrash(const std::atomic<bool>& stop) override;
    [[nodiscard]] tl::expected<Deletion, std::string>
    deleteFromTrash(const KnownItem& entry) override;

private:
    [[nodiscard]] Move moveUnlocked(const std::string& path);

    mutable std::mutex m_guard;
    std::map<std::string, std::int64_t> m_things; ///< by path, those in the Trash too
    std::map<std::string, std::string> m_refusals;
    std::map<std::string, std::string> m_failures;
    std::map<std::string, std::string> m_purgeFailures;
    std::map<std::string, std::string> m_deleteFailures;
    std::optional<std::string> m_putBackFailure;
    std::set<std::string> m_unlanded;
    std::set<std::string> m_admin;
    bool m_unreadable = false;
    std::function<void(const std::string&)> m_beforeMove;
    std::function<std::int64_t(const std::atomic<bool>&)> m_measure;
    std::vector<std::string> m_changes;
    int m_listings = 0;
    int m_measures = 0;
};

} // namespace zolva::test
