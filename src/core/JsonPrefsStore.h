#pragma once

#include "core/PrefsStore.h"

#include <memory>

namespace zolva {

/// Settings in one JSON file, an object by key. A write reads the file again under a lock and
/// replaces it whole, so that processes undo neither one another's keys nor changes of a list.
/// Reads see what others wrote. A file that is no JSON object is set aside under its name and
/// ".damaged". One that cannot be read is never replaced, and what was read of it before still
/// holds. The log tells of all that.
class JsonPrefsStore final : public PrefsStore
{
public:
    explicit JsonPrefsStore(std::string path);
    ~JsonPrefsStore() override;

    [[nodiscard]] bool has(const std::string& key) override;
    [[nodiscard]] bool boolean(const std::string& key) override;
    [[nodiscard]] std::int64_t wholeNumber(const std::string& key) override;
    [[nodiscard]] double number(const std::string& key) override;
    [[nodiscard]] std::optional<std::string> text(const std::string& key) override;
    [[nodiscard]] std::optional<std::vector<std::string>> texts(const std::string& key) override;
    [[nodiscard]] PrefsTrouble trouble() override;
    void write(const std::vector<std::pair<std::string, PrefValue>>& values) override;

private:
    class File;
    std::unique_ptr<File> m_file;
};

} // namespace zolva
