#include "faults/World.h"

#include "platform/OpenFolder.h"
#include "platform/SystemTrash.h"
#include "platform/linux/MountTop.h"
#include "platform/linux/TrashInfo.h"
#include "support/SecondVolume.h"

#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

namespace zolva::test {

namespace {

namespace fs = std::filesystem;

/// A mount in memory that only this program sees, so that even the Trash of the volume is its own;
/// where the system does not let us mount, the folder for temporary files.
class OwnVolume : public ::testing::Environment
{
public:
    void SetUp() override
    {
        const char* temporary = std::getenv("TMPDIR");
        path() = std::string(temporary && *temporary ? temporary : "/tmp") + "/zolva-faults-XXXXXX";
        ASSERT_NE(::mkdtemp(path().data()), nullptr);
        m_mounted =
            takeOwnMounts() && ::mount("zolva", path().c_str(), "tmpfs", 0, "size=64m") == 0;
    }
    void TearDown() override
    {
        if (m_mounted) {
            ::umount2(path().c_str(), MNT_DETACH);
        }
        ::rmdir(path().c_str());
    }
    static std::string& path()
    {
        static std::string folder;
        return folder;
    }

private:
    bool m_mounted = false;
};

// The test framework owns it.
const ::testing::Environment* const ownVolume = ::testing::AddGlobalTestEnvironment(new OwnVolume);

std::string newRoot()
{
    std::string pattern = OwnVolume::path() + "/world-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no folder to work in");
    }
    return pattern;
}

std::string volumeTrashOf(const std::string& folder)
{
    const FileDescriptor open = openFolder(folder);
    const auto top = mountTop(open.get());
    if (!top) {
        throw std::runtime_error("no top of the volume");
    }
    return (top->path == "/" ? "" : top->path) + "/.Trash-" + std::to_string(::geteuid());
}

void write(const std::string& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

class ItemMaker
{
public:
    ItemMaker(std::uint32_t seed, std::string bystander)
        : m_random(seed), m_bystander(std::move(bystander))
    {}

    std::string name()
    {
        static const std::array<std::string, 6> odd = {
            "new\nline", "per%41cent", "\xFF\xFE", "blank s ", ".hidden", std::string(240, 'l')};
        return pick(3) == 0 ? odd[pick(odd.size())] : "n" + std::to_string(pick(1000)) + ".txt";
    }

    void make(const std::string& path, int depth)
    {
        switch (pick(depth > 0 ? 6 : 4)) {
        case 0:
            fs::create_symlink(m_bystander, path);
            break;
        case 1:
            fs::create_symlink("/nowhere/at/all", path);
            break;
        case 2:
            fs::create_hard_link(m_bystander + "/shared", path);
            break;
        case 3:
            write(path, std::string(pick(3000), static_cast<char>('a' + pick(26))));
            ::chmod(path.c_str(), static_cast<mode_t>(pick(01000)));
            break;
        default:
            folder(path, depth);
        }
    }

    void folder(const std::string& path, int depth)
    {
        fs::create_directory(path);
        for (std::size_t i = pick(4); i > 0; --i) {
            const std::string inner = path + "/" + name();
            if (!fs::exists(fs::symlink_status(inner))) {
                make(inner, depth - 1);
            }
        }
    }

    std::size_t pick(std::size_t below) { return m_random() % below; }

private:
    std::mt19937 m_random;
    std::string m_bystander;
};

std::string described(const fs::path& path)
{
    struct stat status
    {};
    if (::lstat(path.c_str(), &status) != 0) {
        return "gone";
    }
    std::string text = std::to_string(status.st_mode);
    if (S_ISLNK(status.st_mode)) {
        text += " " + fs::read_symlink(path).string();
    } else if (S_ISREG(status.st_mode)) {
        text += " " + content(path);
    }
    return text;
}

} // namespace

Picture pictureOf(const std::string& path)
{
    Picture picture;
    if (!fs::exists(fs::symlink_status(path))) {
        return picture;
    }
    picture[""] = described(path);
    if (fs::is_directory(fs::symlink_status(path))) {
        for (const auto& entry : fs::recursive_directory_iterator(path)) {
            picture[entry.path().lexically_relative(path)] = described(entry.path());
        }
    }
    return picture;
}

bool isLong()
{
    const char* wanted = std::getenv("ZOLVA_LONG");
    return wanted != nullptr && std::string(wanted) == "1";
}

World::World(std::uint32_t seed)
    : m_root(newRoot()), m_volumeTrash(volumeTrashOf(m_root)), m_foreign(stands(m_volumeTrash))
{
    const std::string home = m_root + "/home";
    fs::create_directories(home + "/place");
    fs::create_directories(home + "/bystander/inner");
    m_home = std::make_unique<TrashHome>(home);
    write(home + "/bystander/shared", "shared bytes");
    write(home + "/bystander/inner/kept", "kept bytes");
    ItemMaker maker(seed, home + "/bystander");
    m_item = home + "/place/" + maker.name();
    maker.pick(3) == 0 ? maker.make(m_item, 0) : maker.folder(m_item, 3);
    if (maker.pick(2) == 0) {
        fs::create_directories(m_home->trash() + "/files");
        fs::create_directories(m_home->trash() + "/info");
        write(m_home->inTrash(name().substr(0, 100)), "a namesake");
    }
    m_picture = pictureOf(m_item);
    m_bystanders = bystanders();
}

World::~World()
{
    std::error_code ignored;
    fs::remove_all(m_root, ignored);
    if (!m_foreign) {
        fs::remove_all(m_volumeTrash, ignored);
    }
}

std::string World::name() const
{
    return m_item.substr(m_item.rfind('/') + 1);
}

std::string World::trashItem() const
{
    const auto moved = moveToTrash(m_home->home(), m_item);
    if (!moved || !moved->landed) {
        throw std::runtime_error("the item could not be moved");
    }
    return *moved->landed;
}

bool World::isAtItsPlace() const
{
    return pictureOf(m_item) == m_picture;
}

int World::places() const
{
    int found = isAtItsPlace() ? 1 : 0;
    for (const std::string& trash : {m_home->trash(), m_volumeTrash}) {
        for (const std::string& one : namesIn(trash + "/files")) {
            found += pictureOf(trash + "/files/" + one) == m_picture ? 1 : 0;
        }
    }
    return found;
}

std::string World::recordedName() const
{
    const std::string top = m_volumeTrash.substr(0, m_volumeTrash.rfind('/') + 1);
    for (const std::string& trash : {m_home->trash(), m_volumeTrash}) {
        for (const std::string& one : namesIn(trash + "/files")) {
            const auto info = parsedTrashInfo(content(trash + "/info/" + one + ".trashinfo"));
            const bool isItem = info && (info->path == m_item || top + info->path == m_item);
            if (isItem && pictureOf(trash + "/files/" + one) == m_picture) {
                return one;
            }
        }
    }
    return {};
}

Picture World::bystanders() const
{
    Picture picture = pictureOf(m_home->path("bystander"));
    picture["namesake"] = content(m_home->inTrash(name().substr(0, 100)));
    return picture;
}

bool World::bystandersAreUntouched() const
{
    Picture now = bystanders();
    // The name may be that of the item itself by now, unless a namesake was there before.
    const auto before = m_bystanders.find("namesake");
    if (before->second == "(none)") {
        now["namesake"] = before->second;
    }
    return now == m_bystanders;
}

} // namespace zolva::test
