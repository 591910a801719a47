#pragma once

#include "removal/runs/RemovalDisk.h"

namespace zolva {

/// The machine's disk.
class LiveRemovalDisk : public RemovalDisk
{
public:
    [[nodiscard]] TrashAttempt trashOnePath(const std::string& path) override;
    [[nodiscard]] Purge purgeFromTrash(const std::vector<KnownItem>& landed) override;
    [[nodiscard]] bool adminMoveToTrash(const std::string& path) override;
    [[nodiscard]] Move moveToTrash(const std::string& path) override;
    [[nodiscard]] std::optional<std::string> putBack(const KnownItem& landed,
                                                     const std::string& destination) override;
    [[nodiscard]] bool exists(const std::string& path) override;
    [[nodiscard]] bool isInTrash(const KnownItem& landed) override;
    [[nodiscard]] std::string trashFolder() override;
    [[nodiscard]] std::string preparedTrashFolder() override;
    [[nodiscard]] std::optional<std::int64_t> trashCount() override;
    [[nodiscard]] std::optional<std::vector<KnownItem>> listTrash() override;
    [[nodiscard]] std::int64_t measureTrash(const std::atomic<bool>& stop) override;
    [[nodiscard]] tl::expected<Deletion, std::string>
    deleteFromTrash(const KnownItem& entry) override;
    void deleteLeftovers() override;
};

} // namespace zolva
