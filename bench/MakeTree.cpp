#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

// Makes a tree to measure walks on, the same one every time: wide rows, chains 60 deep, nests as
// package managers leave them, and one flat folder. About 597,000 files in 60,000 folders at full
// size. Most files are empty or a few bytes; some have up to eight blocks, so that the largest are
// full of ties.
namespace {

[[noreturn]] void fail(const std::string& what)
{
    std::perror(what.c_str());
    std::exit(1);
}

/// An open folder that is being filled.
class Folder
{
public:
    Folder(int parent, const std::string& name)
    {
        if (::mkdirat(parent, name.c_str(), 0755) != 0) {
            fail(name);
        }
        m_folder = ::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (m_folder < 0) {
            fail(name);
        }
    }
    Folder(const Folder& parent, const std::string& name) : Folder(parent.m_folder, name) {}
    ~Folder() { ::close(m_folder); }
    Folder& operator=(const Folder&) = delete;

    void files(int count, std::mt19937& random) const
    {
        for (int i = 0; i < count; ++i) {
            const std::string name =
                "file-" + std::to_string(random() % 100000) + "-" + std::to_string(i) + ".dat";
            const int file =
                ::openat(m_folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
            if (file < 0) {
                fail(name);
            }
            if (random() % 64 == 0) {
                const auto blocks = static_cast<off_t>(1 + random() % 8);
                if (::posix_fallocate(file, 0, blocks * 4096) != 0) {
                    fail(name);
                }
            }
            ::close(file);
        }
    }

private:
    int m_folder = -1;
};

/// 100 rows of folders with ten files each.
void rows(const Folder& root, int folders, std::mt19937& random)
{
    const Folder wide(root, "wide");
    for (int row = 0; row < 100; ++row) {
        const Folder here(wide, "row" + std::to_string(row));
        for (int i = 0; i < folders / 100; ++i) {
            Folder(here, "folder" + std::to_string(i)).files(10, random);
        }
    }
}

void chain(const Folder& parent, int depth, std::mt19937& random)
{
    const Folder here(parent, "level" + std::to_string(depth));
    here.files(6, random);
    if (depth > 1) {
        chain(here, depth - 1, random);
    }
}

void nest(const Folder& parent, int depth, std::mt19937& random)
{
    const Folder modules(parent, "node_modules");
    for (int i = 0; i < 5; ++i) {
        const Folder package(modules, "package" + std::to_string(i));
        package.files(4, random);
        Folder(package, "dist").files(9, random);
        Folder(package, "src").files(12, random);
        if (depth > 1 && i < 2) {
            nest(package, depth - 1, random);
        }
    }
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 2 || count > 3) {
        std::fprintf(stderr, "usage: make-tree FOLDER [PERCENT]\n"
                             "FOLDER must not exist; PERCENT scales the size (100).\n");
        return 2;
    }
    const int percent = count == 3 ? std::atoi(arguments[2]) : 100;
    std::mt19937 random(20);
    const Folder root(AT_FDCWD, arguments[1]);
    Folder(root, "flat").files(1000 * percent, random);
    rows(root, 250 * percent, random);
    const Folder chains(root, "chains");
    for (int i = 0; i < 2 * percent; ++i) {
        chain(Folder(chains, "chain" + std::to_string(i)), 60, random);
    }
    const Folder projects(root, "projects");
    for (int i = 0; i < 2 * percent; ++i) {
        nest(Folder(projects, "project" + std::to_string(i)), 3, random);
    }
    return 0;
}
