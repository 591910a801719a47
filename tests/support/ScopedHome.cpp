#include "support/ScopedHome.h"

#include <cstdlib>

namespace zolva::test {

namespace {

std::optional<std::string> variable(const std::string& name)
{
    const char* value = std::getenv(name.c_str());
    return value ? std::optional<std::string>(value) : std::nullopt;
}

void setVariable(const std::string& name, const std::optional<std::string>& value)
{
    if (value) {
        ::setenv(name.c_str(), value->c_str(), 1);
    } else {
        ::unsetenv(name.c_str());
    }
}

} // namespace

ScopedVariable::ScopedVariable(std::string name, std::optional<std::string> value)
    : m_name(std::move(name)), m_old(variable(m_name))
{
    setVariable(m_name, value);
}

ScopedVariable::~ScopedVariable()
{
    setVariable(m_name, m_old);
}

ScopedHome::ScopedHome(const std::string& home)
{
    const std::map<std::string, std::string> wanted = {
        {"HOME", home},
        {"XDG_DATA_HOME", home + "/.local/share"},
        {"XDG_CONFIG_HOME", home + "/.config"},
        {"XDG_STATE_HOME", home + "/.local/state"},
        {"XDG_CACHE_HOME", home + "/.cache"},
        {"XDG_RUNTIME_DIR", home + "/.run"},
    };
    for (const auto& [name, value] : wanted) {
        m_old[name] = variable(name);
        setVariable(name, value);
    }
}

ScopedHome::~ScopedHome()
{
    for (const auto& [name, value] : m_old) {
        setVariable(name, value);
    }
}

} // namespace zolva::test
