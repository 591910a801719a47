#include "support/TrashHome.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>

namespace zolva::test {

namespace {

std::string temporaryFolder()
{
    const char* base = std::getenv("TMPDIR");
    return base && *base ? base : "/tmp";
}

bool pointsToTemporary(const char* variable)
{
    const char* value = std::getenv(variable);
    const std::string text = value ? value : "";
    return text.starts_with(temporaryFolder() + "/") || text.starts_with("/dev/shm/");
}

void insist()
{
    if (!pointsToTemporary("HOME") || !pointsToTemporary("XDG_DATA_HOME")) {
        std::fputs("HOME or XDG_DATA_HOME is not a temporary folder; no test goes on\n", stderr);
        std::abort();
    }
}

class NoRealTrash : public ::testing::Environment
{
public:
    void SetUp() override
    {
        static const ScopedHome nowhere(temporaryFolder() + "/zolva-test-has-no-home");
        insist();
    }
};

// The test framework owns it.
const ::testing::Environment* const noRealTrash =
    ::testing::AddGlobalTestEnvironment(new NoRealTrash);

} // namespace

TrashHome::TrashHome() : m_home(tree.folder("home")), m_scope(m_home)
{
    insist();
}

TrashHome::TrashHome(const std::string& folder) : m_home(folder), m_scope(m_home)
{
    insist();
}

std::string TrashHome::path(const std::string& relative) const
{
    return m_home + "/" + relative;
}

std::string TrashHome::inTrash(const std::string& name) const
{
    return trash() + "/files/" + name;
}

std::string TrashHome::infoOf(const std::string& name) const
{
    return trash() + "/info/" + name + ".trashinfo";
}

bool stands(const std::string& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::string content(const std::string& path)
{
    struct stat status
    {};
    std::ifstream file(path, std::ios::binary);
    if (!file || ::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return "(none)";
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> namesIn(const std::string& path)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(path.c_str()),
                                                     [](DIR* open) { return ::closedir(open); });
    while (stream) {
        const dirent* entry = ::readdir(stream.get());
        if (entry == nullptr) {
            break;
        }
        const std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace zolva::test
