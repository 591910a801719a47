#include "diagnostics/AlternateStack.h"

#include <csignal>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>

namespace zolva {

namespace {

/// Room for the handler below the registers that the kernel saves there, which differ by processor.
std::size_t stackSize()
{
    constexpr std::size_t least = 65536;
    return std::max(least, static_cast<std::size_t>(SIGSTKSZ));
}

class AlternateStack
{
public:
    AlternateStack()
    {
        const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
        const std::size_t stack = (stackSize() + page - 1) / page * page;
        void* memory = ::mmap(nullptr, page + stack, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) {
            return;
        }
        m_memory = memory;
        m_size = page + stack;
        // The stack grows down; its end must not run into someone's memory unseen.
        ::mprotect(memory, page, PROT_NONE);
        stack_t wanted{};
        wanted.ss_sp = static_cast<std::byte*>(memory) + page;
        wanted.ss_size = stack;
        m_installed = ::sigaltstack(&wanted, &m_old) == 0;
    }

    ~AlternateStack()
    {
        // What stood there before is put back: a sanitizer's runtime frees its own at this place.
        if (!m_memory || (m_installed && ::sigaltstack(&m_old, nullptr) != 0)) {
            return;
        }
        ::munmap(m_memory, m_size);
    }

    AlternateStack(const AlternateStack&) = delete;
    AlternateStack& operator=(const AlternateStack&) = delete;

private:
    void* m_memory = nullptr;
    std::size_t m_size = 0;
    stack_t m_old{};
    bool m_installed = false;
};

} // namespace

void useAlternateSignalStack()
{
    static thread_local const AlternateStack stack;
    static_cast<void>(stack);
}

} // namespace zolva
