#pragma once

#include <map>
#include <optional>
#include <string>

namespace zolva::test {

/// Sets one variable of the environment and puts the old value back; nothing unsets it.
class ScopedVariable
{
public:
    ScopedVariable(std::string name, std::optional<std::string> value);
    ~ScopedVariable();
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    std::string m_name;
    std::optional<std::string> m_old;
};

/// Makes HOME and every XDG folder point below `home` as long as it lives.
class ScopedHome
{
public:
    explicit ScopedHome(const std::string& home);
    ~ScopedHome();
    ScopedHome(const ScopedHome&) = delete;
    ScopedHome& operator=(const ScopedHome&) = delete;

private:
    std::map<std::string, std::optional<std::string>> m_old;
};

} // namespace zolva::test
