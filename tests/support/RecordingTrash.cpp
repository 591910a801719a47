#include "support/RecordingTrash.h"

#include "diagnostics/Log.h"
#include "files/PathText.h"

#include <string_view>
#include <utility>

namespace zolva::test {

namespace {

constexpr std::string_view trashPrefix = "/trash/";

bool isTrashPath(const std::string& path)
{
    return path.starts_with(trashPrefix);
}

const std::string* found(const std::map<std::string, std::string>& texts, const std::string& key)
{
    const auto at = texts.find(key);
    return at == texts.end() ? nullptr : &at->second;
}

} // namespace

void RecordingTrash::put(const std::string& path, std::int64_t bytes)
{
    const std::lock_guard lock(m_guard);
    m_things[path] = bytes;
}

void RecordingTrash::take(const std::string& path)
{
    const std::lock_guard lock(m_guard);
    m_things.erase(path);
}

void RecordingTrash::putInTrash(const std::string& name, std::int64_t bytes)
{
    put(std::string(trashPrefix) + name, bytes);
}

void RecordingTrash::refuse(const std::string& path, const std::string& text)
{
    const std::lock_guard lock(m_guard);
    m_refusals[path] = text;
}

void RecordingTrash::fail(const std::string& path, const std::string& text)
{
    const std::lock_guard lock(m_guard);
    m_failures[path] = text;
}

void RecordingTrash::failPurge(const std::string& name, const std::string& text)
{
    const std::lock_guard lock(m_guard);
    m_purgeFailures[std::string(trashPrefix) + name] = text;
}

void RecordingTrash::failDelete(const std::string& name, const std::string& text)
{
    const std::lock_guard lock(m_guard);
    m_deleteFailures[name] = text;
}

void RecordingTrash::failPutBack(const std::string& text)
{
    const std::lock_guard lock(m_guard);
    m_putBackFailure = text;
}

void RecordingTrash::tellNoLanding(const std::string& path)
{
    const std::lock_guard lock(m_guard);
    m_unlanded.insert(path);
}

void RecordingTrash::allowAdmin(const std::string& path)
{
    const std::lock_guard lock(m_guard);
    m_admin.insert(path);
}

void RecordingTrash::setUnreadable(bool unreadable)
{
    const std::lock_guard lock(m_guard);
    m_unreadable = unreadable;
}

void RecordingTrash::beforeMove(std::function<void(const std::string&)> hook)
{
    const std::lock_guard lock(m_guard);
    m_beforeMove = std::move(hook);
}

void RecordingTrash::setMeasure(std::function<std::int64_t(const std::atomic<bool>&)> measure)
{
    const std::lock_guard lock(m_guard);
    m_measure = std::move(measure);
}

std::vector<std::string> RecordingTrash::changes() const
{
    const std::lock_guard lock(m_guard);
    return m_changes;
}

int RecordingTrash::listings() const
{
    const std::lock_guard lock(m_guard);
    return m_listings;
}

int RecordingTrash::measures() const
{
    const std::lock_guard lock(m_guard);
    return m_measures;
}

RemovalDisk::Move RecordingTrash::moveUnlocked(const std::string& path)
{
    if (const std::string* text = found(m_failures, path)) {
        return {*text, std::nullopt};
    }
    const std::string landed = std::string(trashPrefix) + lastComponent(path);
    m_things[landed] = m_things[path];
    m_things.erase(path);
    return {std::nullopt,
            m_unlanded.contains(path) ? std::nullopt : std::optional<std::string>(landed)};
}

TrashAttempt RecordingTrash::trashOnePath(const std::string& path)
{
    std::function<void(const std::string&)> hook;
    {
        const std::lock_guard lock(m_guard);
        m_changes.push_back("trash " + path);
        hook = m_beforeMove;
    }
    if (hook) {
        hook(path);
    }
    const std::lock_guard lock(m_guard);
    if (const std::string* text = found(m_refusals, path)) {
        log::refused(path, *text);
        return {TrashRefused{*text}, std::nullopt};
    }
    if (!m_things.contains(path)) {
        log::alreadyGone(path);
        return {TrashAlreadyAbsent{}, std::nullopt};
    }
    const std::int64_t bytes = m_things[path];
    Move move = moveUnlocked(path);
    if (move.error) {
        log::failed(path, *move.error);
        return {TrashFailed{*move.error}, std::nullopt};
    }
    log::trashed(path, bytes);
    return {TrashMoved{bytes}, std::move(move.landed)};
}

Purge RecordingTrash::purgeFromTrash(const std::vector<KnownItem>& landed)
{
    const std::lock_guard lock(m_guard);
    Purge purge;
    for (const KnownItem& item : landed) {
        const std::string& path = item.at;
        m_changes.push_back("purge " + path);
        if (const std::string* text = found(m_purgeFailures, path)) {
            log::failed(path, *text);
            purge.problems.push_back(*text);
        } else if (m_things.erase(path) > 0) {
            log::purged(path);
            ++purge.purged;
        }
    }
    return purge;
}

bool RecordingTrash::adminMoveToTrash(const std::string& path)
{
    const std::lock_guard lock(m_guard);
    m_changes.push_back("admin " + path);
    return m_admin.contains(path) && m_things.erase(path) > 0;
}

RemovalDisk::Move RecordingTrash::moveToTrash(const std::string& path)
{
    const std::lock_guard lock(m_guard);
    m_changes.push_back("move " + path);
    return moveUnlocked(path);
}

std::optional<std::string> RecordingTrash::putBack(const KnownItem& landed,
                                                   const std::string& destination)
{
    const std::lock_guard lock(m_guard);
    m_changes.push_back("back " + destination);
    if (!m_putBackFailure) {
        m_things[destination] = m_things[landed.at];
        m_things.erase(landed.at);
    }
    return m_putBackFailure;
}

bool RecordingTrash::exists(const std::string& path)
{
    const std::lock_guard lock(m_guard);
    return m_things.contains(path);
}

std::optional<std::int64_t> RecordingTrash::trashCount()
{
    const auto names = listTrash();
    return names ? std::optional(static_cast<std::int64_t>(names->size())) : std::nullopt;
}

std::optional<std::vector<KnownItem>> RecordingTrash::listTrash()
{
    const std::lock_guard lock(m_guard);
    ++m_listings;
    if (m_unreadable) {
        return std::nullopt;
    }
    std::vector<KnownItem> names;
    for (const auto& [path, bytes] : m_things) {
        if (isTrashPath(path)) {
            names.emplace_back(path.substr(trashPrefix.size()));
        }
    }
    return names;
}

std::int64_t RecordingTrash::measureTrash(const std::atomic<bool>& stop)
{
    std::function<std::int64_t(const std::atomic<bool>&)> measure;
    std::int64_t sum = 0;
    {
        const std::lock_guard lock(m_guard);
        ++m_measures;
        measure = m_measure;
        for (const auto& [path, bytes] : m_things) {
            sum += isTrashPath(path) ? bytes : 0;
        }
    }
    return measure ? measure(stop) : sum;
}

tl::expected<Deletion, std::string> RecordingTrash::deleteFromTrash(const KnownItem& entry)
{
    const std::string& name = entry.at;
    const std::lock_guard lock(m_guard);
    m_changes.push_back("delete " + name);
    const std::string path = std::string(trashPrefix) + name;
    if (const std::string* text = found(m_deleteFailures, name)) {
        log::failed(path, *text);
        return tl::unexpected(*text);
    }
    if (m_things.erase(path) == 0) {
        log::alreadyGone(path);
        return Deletion::AlreadyGone;
    }
    log::purged(path);
    return Deletion::Done;
}

} // namespace zolva::test
