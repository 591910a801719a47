#include "core/JsonPrefsStore.h"

#include "core/PrefsJson.h"
#include "diagnostics/Log.h"
#include "files/PathText.h"
#include "platform/WholeFile.h"

#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <map>
#include <system_error>
#include <thread>
#include <tuple>
#include <utility>

namespace zolva {

using nlohmann::json;

namespace {

/// Thousands of exclusions fit; a larger file is none of ours.
constexpr std::size_t sizeLimit = std::size_t{4} * 1024 * 1024;
/// Settings are the user's own affair.
constexpr mode_t fileMode = 0600;
constexpr mode_t folderMode = 0700;

void makeFolders(const std::string& folder)
{
    for (std::size_t slash = folder.find('/', 1);; slash = folder.find('/', slash + 1)) {
        ::mkdir(folder.substr(0, slash).c_str(), folderMode);
        if (slash == std::string::npos) {
            return;
        }
    }
}

/// The turn to read, change and write the file, among processes. Another one is done in
/// milliseconds; one that was stopped in the midst is not waited for. Where the lock cannot be had
/// for any other reason, it is done without.
class Turn
{
public:
    explicit Turn(const std::string& lockFile)
        : m_fd(::open(lockFile.c_str(), O_RDWR | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                      fileMode))
    {
        constexpr int tries = 20;
        for (int i = 0; m_fd >= 0 && i < tries; ++i) {
            m_othersTurn = ::flock(m_fd, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
            if (!m_othersTurn) {
                return;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
    ~Turn()
    {
        if (m_fd >= 0) {
            ::close(m_fd);
        }
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    [[nodiscard]] bool isOthers() const { return m_othersTurn; }

private:
    int m_fd;
    bool m_othersTurn = false;
};

/// What tells one content of the file from the next; nothing if there is no file.
using Stamp = std::tuple<dev_t, ino_t, off_t, std::filesystem::file_time_type>;

std::optional<Stamp> stampOf(const std::string& path)
{
    struct stat status
    {};
    if (::stat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    std::error_code ignored;
    return Stamp{status.st_dev, status.st_ino, status.st_size,
                 std::filesystem::last_write_time(path, ignored)};
}

struct Loaded
{
    std::error_code error; ///< it is there and cannot be read
    bool damaged = false;
    bool isAbsent = false;
    json values = json::object();
};

Loaded load(const std::string& path)
{
    WholeFile file = readWholeFile(path, sizeLimit);
    Loaded loaded;
    // What should be its folder may be none.
    loaded.isAbsent = file.error == std::errc::no_such_file_or_directory ||
                      file.error == std::errc::not_a_directory;
    loaded.damaged = file.error == std::errc::file_too_large;
    if (file.error) {
        loaded.error = loaded.isAbsent || loaded.damaged ? std::error_code() : file.error;
        return loaded;
    }
    if (std::optional<json> values = parsedPrefs(file.bytes)) {
        loaded.values = *std::move(values);
    } else {
        loaded.damaged = true;
    }
    return loaded;
}

bool isThere(const std::string& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) == 0;
}

/// What two writes of one key come to.
PrefValue combinedValue(const PrefValue& first, const PrefValue& second)
{
    const auto* const change = std::get_if<TextsChange>(&second);
    if (change == nullptr) {
        return second;
    }
    if (const auto* const before = std::get_if<TextsChange>(&first)) {
        return combined(*before, *change);
    }
    const auto* const list = std::get_if<std::vector<std::string>>(&first);
    return changed(list == nullptr ? std::vector<std::string>() : *list, *change);
}

} // namespace

class JsonPrefsStore::File
{
public:
    explicit File(std::string path) : m_path(std::move(path)) {}

    /// The value, if there is one.
    const json* find(const std::string& key)
    {
        refresh();
        const auto found = m_shown.find(key);
        return found == m_shown.end() || found->is_null() ? nullptr : &*found;
    }

    PrefsTrouble trouble()
    {
        refresh();
        PrefsTrouble trouble;
        if (!m_wasRead) {
            trouble.unread = m_unreadable.message();
        }
        if (m_isInTheWay) {
            trouble.damaged = m_path;
        } else if (isThere(aside())) {
            trouble.damaged = aside();
        }
        return trouble;
    }

    void write(const std::vector<std::pair<std::string, PrefValue>>& values)
    {
        for (const auto& [key, value] : values) {
            const auto [pending, isNew] = m_pending.try_emplace(key, value);
            if (!isNew) {
                pending->second = combinedValue(pending->second, value);
            }
        }
        if (const std::optional<std::string> refusal = writePending()) {
            log::preferencesUnwritten(*refusal);
        }
        show();
    }

private:
    [[nodiscard]] std::string folder() const { return parentPath(m_path); }
    [[nodiscard]] std::string lockFile() const { return joinedPath(folder(), "preferences.lock"); }

    /// Where the file really is, or would be: a link to it is kept a link.
    [[nodiscard]] std::string target() const
    {
        constexpr int mostLinks = 40; // as many as the system follows
        std::filesystem::path at = m_path;
        for (int i = 0; i < mostLinks; ++i) {
            std::error_code noLink;
            const std::filesystem::path next = std::filesystem::read_symlink(at, noLink);
            if (noLink) {
                break;
            }
            at = at.parent_path() / next;
        }
        return at.string();
    }

    /// Where a damaged file is put.
    [[nodiscard]] std::string aside() const { return target() + ".damaged"; }

    /// As it is now. A link into a folder that is not there, as on a disk that is not mounted, is
    /// no first start.
    [[nodiscard]] Loaded loadNow() const
    {
        Loaded loaded = load(m_path);
        if (loaded.isAbsent && isThere(m_path) && !isThere(parentPath(target()))) {
            loaded.error = std::make_error_code(std::errc::no_such_file_or_directory);
        }
        return loaded;
    }

    /// Why it could not be done.
    [[nodiscard]] std::optional<std::string> writePending()
    {
        makeFolders(folder());
        const Turn turn(lockFile());
        if (turn.isOthers()) {
            return "another process holds them";
        }
        // What is changed is what others have stored by now, and not what was read before.
        Loaded loaded = loadNow();
        if (loaded.error) {
            // Replacing it would lose what it holds.
            return loaded.error.message();
        }
        if (loaded.damaged && !setAside()) {
            return "the damaged file is in the way";
        }
        const std::string before = prefsBytes(loaded.values);
        putPending(loaded.values);
        const std::string bytes = prefsBytes(loaded.values);
        if (bytes != before) {
            if (const std::error_code error = replaceWholeFile(target(), bytes, fileMode)) {
                return error.message();
            }
        }
        m_pending.clear();
        keep(std::move(loaded.values), stampOf(m_path));
        return std::nullopt;
    }

    void refresh()
    {
        const std::optional<Stamp> stamp = stampOf(m_path);
        if (stamp && stamp == m_stamp) {
            return;
        }
        Loaded loaded = loadNow();
        bool isInTheWay = false;
        if (loaded.damaged) {
            const Turn turn(lockFile());
            // Another process may have put it right meanwhile.
            loaded = loadNow();
            isInTheWay = loaded.damaged && (turn.isOthers() || !setAside());
        }
        if (loaded.error) {
            // What was read before still holds, and every further look tries again.
            m_stamp.reset();
            if (std::exchange(m_unreadable, loaded.error) != loaded.error) {
                log::preferencesUnreadable(loaded.error.message());
            }
            return;
        }
        keep(std::move(loaded.values), stamp);
        m_isInTheWay = isInTheWay;
        show();
    }

    /// What was read or written.
    void keep(json values, const std::optional<Stamp>& stamp)
    {
        m_known = std::move(values);
        m_stamp = stamp;
        m_unreadable.clear();
        m_wasRead = true;
        m_isInTheWay = false;
    }

    void show()
    {
        m_shown = m_known;
        putPending(m_shown);
    }

    void putPending(json& values) const
    {
        for (const auto& [key, value] : m_pending) {
            putStored(values, key, value);
        }
    }

    [[nodiscard]] bool setAside() const
    {
        const std::string to = aside();
        if (std::rename(target().c_str(), to.c_str()) != 0) {
            const std::error_code error(errno, std::generic_category());
            log::preferencesUnreadable("damaged, and not to be set aside: " + error.message());
            return false;
        }
        log::preferencesSetAside(to);
        return true;
    }

    std::string m_path;
    std::optional<Stamp> m_stamp; ///< of what `m_known` was read from
    json m_known = json::object();
    std::map<std::string, PrefValue> m_pending; ///< written here, and not on the disk yet
    json m_shown = json::object();              ///< what is known, with what is pending
    std::error_code m_unreadable;               ///< told already
    bool m_wasRead = false;                     ///< at least once
    bool m_isInTheWay = false;                  ///< damaged, and not to be set aside
};

JsonPrefsStore::JsonPrefsStore(std::string path) : m_file(std::make_unique<File>(std::move(path)))
{}

JsonPrefsStore::~JsonPrefsStore() = default;

bool JsonPrefsStore::has(const std::string& key)
{
    return m_file->find(key) != nullptr;
}

bool JsonPrefsStore::boolean(const std::string& key)
{
    const json* value = m_file->find(key);
    return value && value->is_boolean() && value->get<bool>();
}

std::int64_t JsonPrefsStore::wholeNumber(const std::string& key)
{
    const json* value = m_file->find(key);
    if (!value || !value->is_number_integer()) {
        return 0;
    }
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    const bool tooLarge = value->is_number_unsigned() &&
                          value->get<std::uint64_t>() > static_cast<std::uint64_t>(largest);
    return tooLarge ? largest : value->get<std::int64_t>();
}

double JsonPrefsStore::number(const std::string& key)
{
    const json* value = m_file->find(key);
    return value && value->is_number() ? value->get<double>() : 0.0;
}

std::optional<std::string> JsonPrefsStore::text(const std::string& key)
{
    const json* value = m_file->find(key);
    if (!value || !value->is_string()) {
        return std::nullopt;
    }
    return textFromStored(value->get_ref<const std::string&>());
}

std::optional<std::vector<std::string>> JsonPrefsStore::texts(const std::string& key)
{
    const json* value = m_file->find(key);
    return value ? textsFromStored(*value) : std::nullopt;
}

PrefsTrouble JsonPrefsStore::trouble()
{
    return m_file->trouble();
}

void JsonPrefsStore::write(const std::vector<std::pair<std::string, PrefValue>>& values)
{
    m_file->write(values);
}

} // namespace zolva
