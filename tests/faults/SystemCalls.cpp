#include "faults/SystemCalls.h"

#include <elf.h>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <iterator>
#include <stdexcept>

namespace zolva::test {

namespace {

/// Told to the tracer after the body's last call of its own.
constexpr long endMark = SYS_getppid;
constexpr std::size_t mostCalls = 100000;
constexpr unsigned patience = 30;

constexpr std::array fileCalls = {
    SYS_openat,     SYS_openat2,    SYS_close,     SYS_read,      SYS_write,
    SYS_fsync,      SYS_newfstatat, SYS_fstat,     SYS_statx,     SYS_getdents64,
    SYS_mkdirat,    SYS_unlinkat,   SYS_linkat,    SYS_symlinkat, SYS_renameat2,
    SYS_readlinkat, SYS_fstatfs,    SYS_statfs,    SYS_lseek,     SYS_fcntl,
    SYS_renameat,   SYS_fchmod,     SYS_ftruncate, SYS_fdatasync, SYS_faccessat,
#ifdef SYS_open
    SYS_open,       SYS_stat,       SYS_lstat,     SYS_mkdir,     SYS_unlink,
    SYS_rename,     SYS_readlink,   SYS_rmdir,
#endif
};

bool isFileCall(long number)
{
    return std::find(fileCalls.begin(), fileCalls.end(), number) != fileCalls.end();
}

#if defined(__x86_64__)
void setCall(pid_t child, long number)
{
    user_regs_struct registers{};
    ::ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    registers.orig_rax = static_cast<unsigned long long>(number);
    ::ptrace(PTRACE_SETREGS, child, nullptr, &registers);
}

void setResult(pid_t child, long result)
{
    user_regs_struct registers{};
    ::ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    registers.rax = static_cast<unsigned long long>(result);
    ::ptrace(PTRACE_SETREGS, child, nullptr, &registers);
}
#elif defined(__aarch64__)
void setCall(pid_t child, long number)
{
    int call = static_cast<int>(number);
    iovec part{&call, sizeof call};
    ::ptrace(PTRACE_SETREGSET, child, reinterpret_cast<void*>(NT_ARM_SYSTEM_CALL), &part);
}

void setResult(pid_t child, long result)
{
    user_regs_struct registers{};
    iovec part{&registers, sizeof registers};
    ::ptrace(PTRACE_GETREGSET, child, reinterpret_cast<void*>(NT_PRSTATUS), &part);
    registers.regs[0] = static_cast<unsigned long long>(result);
    ::ptrace(PTRACE_SETREGSET, child, reinterpret_cast<void*>(NT_PRSTATUS), &part);
}
#else
#error "Say how this machine's system calls are changed by a tracer"
#endif

[[noreturn]] void beTraced(const std::function<std::string()>& body, int report)
{
    ::alarm(patience);
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    std::string told;
    try {
        told = body();
    } catch (const std::exception& error) {
        told = std::string("thrown: ") + error.what();
    }
    ::syscall(endMark);
    const bool written =
        ::write(report, told.data(), told.size()) == static_cast<ssize_t>(told.size());
    ::_exit(written ? 0 : 1);
}

class Tracer
{
public:
    Tracer(pid_t child, const FaultPlan& plan) : m_child(child), m_plan(plan) {}

    void follow(TracedRun& run)
    {
        int status = 0;
        ::waitpid(m_child, &status, 0);
        ::ptrace(PTRACE_SETOPTIONS, m_child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
        int signal = 0;
        // One that is being killed takes no more commands, but its end is still to be waited for.
        while ((::ptrace(PTRACE_SYSCALL, m_child, nullptr, signal) == 0 || errno == ESRCH) &&
               ::waitpid(m_child, &status, 0) == m_child) {
            signal = 0;
            if (WIFEXITED(status)) {
                run.end = WEXITSTATUS(status) == 0 ? RunEnd::Finished : RunEnd::Died;
                return;
            }
            if (WIFSIGNALED(status)) {
                run.end = m_killed                                ? RunEnd::Killed
                          : m_hung || WTERMSIG(status) == SIGALRM ? RunEnd::Hung
                                                                  : RunEnd::Died;
                return;
            }
            if (WSTOPSIG(status) == (SIGTRAP | 0x80)) {
                atCall(run);
            } else {
                signal = WSTOPSIG(status);
            }
        }
    }

private:
    void atCall(TracedRun& run)
    {
        __ptrace_syscall_info info{};
        ::ptrace(PTRACE_GET_SYSCALL_INFO, m_child, sizeof info, &info);
        if (info.op == PTRACE_SYSCALL_INFO_EXIT) {
            if (m_refuse != 0) {
                setResult(m_child, -m_refuse);
                m_refuse = 0;
            }
            return;
        }
        const auto number = static_cast<long>(info.entry.nr);
        m_over = m_over || number == endMark;
        if (m_over || !isFileCall(number)) {
            return;
        }
        const int at = static_cast<int>(run.calls.size());
        run.calls.push_back(number);
        if (m_plan.meanwhile) {
            m_plan.meanwhile(at);
        }
        if (at == m_plan.killAt) {
            m_killed = true;
            ::kill(m_child, SIGKILL);
        } else if (run.calls.size() > mostCalls) {
            m_hung = true;
            ::kill(m_child, SIGKILL);
        } else if (at == m_plan.failAt ||
                   (m_plan.andAllAfter && m_plan.failAt >= 0 && at > m_plan.failAt)) {
            m_plan.carriedOut ? belie(m_plan.error) : refuse(m_plan.error);
        } else if (number == m_plan.alwaysRefused) {
            refuse(m_plan.alwaysError);
        }
    }

    void refuse(int error)
    {
        setCall(m_child, -1);
        m_refuse = error;
    }

    void belie(int error) { m_refuse = error; }

    pid_t m_child;
    const FaultPlan& m_plan;
    int m_refuse = 0;
    bool m_killed = false;
    bool m_hung = false;
    bool m_over = false;
};

} // namespace

TracedRun runTraced(const std::function<std::string()>& body, const FaultPlan& plan)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0) {
        throw std::runtime_error("no child");
    }
    if (child == 0) {
        ::close(ends[0]);
        beTraced(body, ends[1]);
    }
    ::close(ends[1]);
    TracedRun run;
    Tracer(child, plan).follow(run);
    std::array<char, 4096> buffer{};
    for (ssize_t got = 0; (got = ::read(ends[0], buffer.data(), buffer.size())) > 0;) {
        run.report.append(buffer.data(), static_cast<std::size_t>(got));
    }
    ::close(ends[0]);
    return run;
}

} // namespace zolva::test
