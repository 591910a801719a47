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
    std::string bytes;
    json values = json::object();
};

Loaded load(const std::string& path)
{
    WholeFile file = readWholeFile(path, sizeLimit);
    Loaded loaded;
    if (file.error == std::errc::no_such_file_or_directory) {
        return loaded;
    }
    loaded.damaged = file.error == std::errc::file_too_large;
    if (file.error) {
        loaded.error = loaded.damaged ? std::error_code() : file.error;
        return loaded;
    }
    if (std::optional<json> values = parsedPrefs(file.bytes)) {
        loaded.values = *std::move(values);
        loaded.bytes = std::move(file.bytes);
    } else {
        loaded.damaged = true;
    }
    return loaded;
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
        for (const json* values : {&m_pending, &m_known}) {
            const auto found = values->find(key);
            if (found != values->end() && !found->is_null()) {
                return &*found;
            }
        }
        return nullptr;
    }

    void write(const json& changes)
    {
        m_pending.update(changes);
        makeFolders(folder());
        const Turn turn(lockFile());
        if (turn.isOthers()) {
            log::preferencesUnwritten("another process holds them");
            return;
        }
        Loaded loaded = load(m_path);
        if (loaded.error) {
            // Replacing it would lose the keys that are not ours.
            log::preferencesUnwritten(loaded.error.message());
            return;
        }
        if (loaded.damaged) {
            setAside();
        }
        loaded.values.update(m_pending);
        const std::string bytes = prefsBytes(loaded.values);
        if (bytes != loaded.bytes) {
            if (const std::error_code error = replaceWholeFile(target(), bytes, fileMode)) {
                log::preferencesUnwritten(error.message());
                return;
            }
        }
        m_known = std::move(loaded.values);
        m_pending = json::object();
        m_stamp = stampOf(m_path);
    }

private:
    [[nodiscard]] std::string folder() const { return parentPath(m_path); }
    [[nodiscard]] std::string lockFile() const { return joinedPath(folder(), "preferences.lock"); }

    /// Where the file really is: a link to it is kept a link.
    [[nodiscard]] std::string target() const
    {
        std::error_code error;
        const std::filesystem::path real = std::filesystem::canonical(m_path, error);
        return error ? m_path : real.string();
    }

    void refresh()
    {
        const std::optional<Stamp> stamp = stampOf(m_path);
        if (stamp == m_stamp) {
            return;
        }
        m_stamp = stamp;
        Loaded loaded = load(m_path);
        if (loaded.damaged) {
            const Turn turn(lockFile());
            // Another process may have put it right meanwhile.
            loaded = load(m_path);
            if (loaded.damaged && !turn.isOthers()) {
                setAside();
            }
        }
        if (loaded.error) {
            log::preferencesUnreadable(loaded.error.message());
        }
        m_known = std::move(loaded.values);
    }

    void setAside()
    {
        const std::string from = target();
        const std::string aside = from + ".damaged";
        if (std::rename(from.c_str(), aside.c_str()) == 0) {
            log::preferencesSetAside(aside);
        } else {
            const std::error_code error(errno, std::generic_category());
            log::preferencesUnreadable("damaged, and not to be set aside: " + error.message());
        }
    }

    std::string m_path;
    std::optional<Stamp> m_stamp; ///< of what `m_known` was read from
    json m_known = json::object();
    json m_pending = json::object(); ///< written here, and not on the disk yet
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
    if (!value || !value->is_array()) {
        return std::nullopt;
    }
    std::vector<std::string> all;
    for (const json& element : *value) {
        if (!element.is_string()) {
            return std::nullopt;
        }
        all.push_back(textFromStored(element.get_ref<const std::string&>()));
    }
    return all;
}

void JsonPrefsStore::write(const std::vector<std::pair<std::string, PrefValue>>& values)
{
    json changes = json::object();
    for (const auto& [key, value] : values) {
        changes[key] = storedValue(value);
    }
    m_file->write(changes);
}

} // namespace zolva
