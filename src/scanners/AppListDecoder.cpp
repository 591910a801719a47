#include "scanners/AppInventory.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstddef>
#include <utility>

namespace zolva {

namespace {

/// More lists and objects inside one another than any list of applications has.
constexpr std::size_t deepestLevel = 64;

struct TextKey
{
    std::string_view key;
    std::string UninstallApp::*field;
};

constexpr std::array<TextKey, 6> textKeys = {{
    {"name", &UninstallApp::name},
    {"bundle_id", &UninstallApp::bundleID},
    {"source", &UninstallApp::source},
    {"uninstall_name", &UninstallApp::uninstallName},
    {"path", &UninstallApp::path},
    {"size", &UninstallApp::size},
}};

/// What the parser says, without its own prefix and without the text it stumbled over, which may
/// be of any length and no UTF-8.
std::string syntaxError(std::size_t byte, std::string told)
{
    if (const auto reason = told.find(" - "); reason != std::string::npos) {
        told.erase(0, reason + 3);
        told.resize(std::min({told.size(), told.find("; last read"), told.find("; expected")}));
    } else {
        told = "number out of range";
    }
    return "not JSON at byte " + std::to_string(byte) + ": " + told;
}

/// Takes the events of the parser one by one, so that a document is never held as a tree: one that
/// is 100,000 lists deep could not even be destroyed. Each handler returns whether to go on.
class AppListReader : public nlohmann::json_sax<nlohmann::json>
{
public:
    bool null() override { return noText("null"); }
    bool boolean(bool) override { return noText("true or false"); }
    bool number_integer(number_integer_t) override { return noText("number"); }
    bool number_unsigned(number_unsigned_t) override { return noText("number"); }
    bool number_float(number_float_t, const string_t&) override { return noText("number"); }
    bool binary(binary_t&) override { return noText("binary data"); }

    bool string(string_t& text) override
    {
        if (m_level < 2) {
            return noText("text");
        }
        if (m_level == 2 && m_key < textKeys.size()) {
            m_app.*textKeys[m_key].field = std::move(text);
            m_seen.set(m_key);
        }
        return true;
    }

    bool start_array(std::size_t) override { return (m_level == 0 || noText("list")) && enter(); }

    bool end_array() override
    {
        --m_level;
        return true;
    }

    bool start_object(std::size_t) override
    {
        if (m_level != 1 && !noText("object")) {
            return false;
        }
        if (m_level == 1) {
            m_app = {};
            m_seen.reset();
        }
        return enter();
    }

    bool key(string_t& text) override
    {
        if (m_level == 2) {
            m_key = 0;
            while (m_key < textKeys.size() && textKeys[m_key].key != text) {
                ++m_key;
            }
        }
        return true;
    }

    bool end_object() override
    {
        --m_level;
        if (m_level != 1) {
            return true;
        }
        for (std::size_t i = 0; i < textKeys.size(); ++i) {
            if (!m_seen.test(i)) {
                return refuse(place() + "." + std::string(textKeys[i].key) + ": missing");
            }
        }
        m_apps.push_back(std::move(m_app));
        return true;
    }

    bool parse_error(std::size_t position, const std::string&,
                     const nlohmann::json::exception& error) override
    {
        return refuse(syntaxError(position, error.what()));
    }

    [[nodiscard]] tl::expected<std::vector<UninstallApp>, std::string> result(bool parsed)
    {
        if (!parsed) {
            return tl::unexpected(std::move(m_error));
        }
        return std::move(m_apps);
    }

private:
    [[nodiscard]] std::string place() const { return "[" + std::to_string(m_apps.size()) + "]"; }

    /// Something that is no text, or stands where none belongs.
    bool noText(const char* found)
    {
        const std::string tail = std::string(", found ") + found;
        if (m_level == 0) {
            return refuse("expected list" + tail);
        }
        if (m_level == 1) {
            return refuse(place() + ": expected object" + tail);
        }
        if (m_level == 2 && m_key < textKeys.size()) {
            return refuse(place() + "." + std::string(textKeys[m_key].key) + ": expected text" +
                          tail);
        }
        return true;
    }

    bool enter()
    {
        if (m_level == deepestLevel) {
            return refuse(place() + ": more than " + std::to_string(deepestLevel) + " levels deep");
        }
        ++m_level;
        return true;
    }

    bool refuse(std::string error)
    {
        m_error = std::move(error);
        return false;
    }

    std::size_t m_level = 0; ///< 1 inside the list, 2 inside one application
    std::size_t m_key = textKeys.size();
    std::bitset<textKeys.size()> m_seen;
    UninstallApp m_app;
    std::vector<UninstallApp> m_apps;
    std::string m_error;
};

} // namespace

tl::expected<std::vector<UninstallApp>, std::string> decodeAppList(std::string_view json)
{
    // To the parser a NUL is the end of the text, whatever follows.
    if (const auto nul = json.find('\0'); nul != std::string_view::npos) {
        return tl::unexpected("not JSON at byte " + std::to_string(nul + 1) + ": NUL");
    }
    AppListReader reader;
    const bool parsed = nlohmann::json::sax_parse(json.begin(), json.end(), &reader);
    return reader.result(parsed);
}

} // namespace zolva
