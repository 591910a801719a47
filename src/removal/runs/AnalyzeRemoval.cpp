#include "removal/runs/AnalyzeRemoval.h"

#include "diagnostics/Log.h"
#include "files/ExclusionRules.h"
#include "files/PathGuards.h"
#include "removal/runs/AnalyzeMessages.h"
#include "removal/runs/RunMessages.h"

#include <QPointer>

#include <utility>

namespace zolva {

AnalyzeRemoval::AnalyzeRemoval(std::shared_ptr<RemovalDisk> disk, ToastList& toasts,
                               TrashMeter& trash,
                               std::function<std::vector<std::string>()> whitelist, QObject* parent)
    : QObject(parent), m_disk(std::move(disk)), m_toasts(toasts), m_trash(trash),
      m_whitelist(std::move(whitelist))
{}

bool AnalyzeRemoval::mayTrash(const std::string& name, const std::string& path)
{
    if (m_trashed.contains(path)) {
        return false;
    }
    if (const auto refusal = pathRefusal(path)) {
        m_toasts.addToast(BannerKind::Warning, cannotMoveText(*refusal));
        return false;
    }
    if (isExcluded(path, m_whitelist())) {
        log::refused(path, excludedReason);
        m_toasts.addToast(BannerKind::Warning, neverTouchText(name));
        return false;
    }
    if (!m_disk->exists(path)) {
        m_toasts.addToast(BannerKind::Info, isGoneText(name));
        return false;
    }
    return true;
}

void AnalyzeRemoval::trashAnalyzeItem(const std::string& name, const std::string& path,
                                      std::int64_t bytes)
{
    if (!mayTrash(name, path)) {
        return;
    }
    const RemovalDisk::Move move = m_disk->moveToTrash(path);
    if (move.error) {
        m_toasts.addToast(BannerKind::Warning, moveFailedText(name, *move.error));
        return;
    }
    m_trashed.insert(path);
    m_trash.noteJustTrashed();
    if (move.landed) {
        offerUndo({QUuid::createUuid(), name, path, bytes, *move.landed, move.identity});
    } else {
        m_toasts.addToast(BannerKind::Success, movedToTrashText(bytes));
    }
    Q_EMIT trashedChanged();
}

void AnalyzeRemoval::offerUndo(AnalyzeUndoRecord record)
{
    const QPointer<AnalyzeRemoval> self(this);
    const QUuid id = record.id;
    const std::int64_t bytes = record.bytes;
    m_analyzeUndos.emplace(id, std::move(record));
    m_toasts.addToast(BannerKind::Success, movedToTrashText(bytes), QString::fromUtf8(undoAction),
                      [self, id] {
                          if (self) {
                              self->putBack(id);
                          }
                      });
}

void AnalyzeRemoval::putBack(const QUuid& id)
{
    const auto found = m_analyzeUndos.find(id);
    if (found == m_analyzeUndos.end()) {
        m_toasts.addToast(BannerKind::Info, cannotPutBackText());
        return;
    }
    const AnalyzeUndoRecord record = found->second;
    const KnownItem landed(record.trashedTo, record.identity);
    if (!m_disk->isInTrash(landed)) {
        m_analyzeUndos.erase(found);
        m_toasts.addToast(BannerKind::Warning, leftTheTrashText(record.name));
        return;
    }
    if (m_disk->exists(record.path)) {
        m_toasts.addToast(BannerKind::Warning, placeTakenText(record.path, record.name));
        return;
    }
    if (const auto error = m_disk->putBack(landed, record.path)) {
        m_toasts.addToast(BannerKind::Warning, putBackFailedText(record.name, *error));
        return;
    }
    m_analyzeUndos.erase(found);
    m_trashed.erase(record.path);
    Q_EMIT trashedChanged();
}

} // namespace zolva
