#pragma once

#include "removal/Toasts.h"
#include "removal/TrashMeter.h"
#include "removal/runs/RemovalDisk.h"

#include <QObject>
#include <QUuid>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zolva {

/// What can be put back.
struct AnalyzeUndoRecord
{
    QUuid id;
    std::string name; ///< as shown
    std::string path; ///< before the move, as the screen gave it
    std::int64_t bytes = 0;
    std::string trashedTo;                  ///< where it is in the Trash
    std::optional<FileIdentity> identity{}; ///< what it is
};

/// One large file or folder at a time to the Trash, whatever the settings say about deleting, and
/// back by the toast's "Undo". Remembered until the process ends. All at once, on the main thread;
/// toasts and meter outlive it.
class AnalyzeRemoval : public QObject
{
    Q_OBJECT

public:
    AnalyzeRemoval(std::shared_ptr<RemovalDisk> disk, ToastList& toasts, TrashMeter& trash,
                   std::function<std::vector<std::string>()> whitelist, QObject* parent = nullptr);

    /// Former paths of what was moved: their rows are gone, and none is moved twice.
    [[nodiscard]] const std::set<std::string>& trashed() const { return m_trashed; }
    [[nodiscard]] const std::map<QUuid, AnalyzeUndoRecord>& analyzeUndos() const
    {
        return m_analyzeUndos;
    }

    void trashAnalyzeItem(const std::string& name, const std::string& path, std::int64_t bytes);
    void putBack(const QUuid& id);

Q_SIGNALS:
    void trashedChanged();

private:
    [[nodiscard]] bool mayTrash(const std::string& name, const std::string& path);
    void offerUndo(AnalyzeUndoRecord record);

    std::shared_ptr<RemovalDisk> m_disk;
    ToastList& m_toasts;
    TrashMeter& m_trash;
    std::function<std::vector<std::string>()> m_whitelist;
    std::set<std::string> m_trashed;
    std::map<QUuid, AnalyzeUndoRecord> m_analyzeUndos;
};

} // namespace zolva
