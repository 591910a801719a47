#include "diagnostics/CrashCapture.h"

#include "diagnostics/AlternateStack.h"
#include "diagnostics/RunJournal.h"

#include <cxxabi.h>
#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>
#include <typeinfo>

namespace zolva {

namespace {

constexpr std::array<int, 6> fatalSignals = {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGTRAP};

std::atomic<int> crashFile = -1;
static_assert(std::atomic<int>::is_always_lock_free, "the signal handler reads it");
std::terminate_handler terminateBefore = nullptr;

/// Runs on whatever is left of the process: nothing but `write`, `signal` and `raise`.
void onFatalSignal(int signal)
{
    constexpr std::string_view opening = "\n=== fatal signal ";
    constexpr std::string_view closing = " ===\n";
    std::array<char, 12> buffer{};
    const std::string_view digits = decimalDigits(signal, buffer);
    const int file = crashFile.load();
    if (file >= 0) {
        static_cast<void>(::write(file, opening.data(), opening.size()) < 0);
        static_cast<void>(::write(file, digits.data(), digits.size()) < 0);
        static_cast<void>(::write(file, closing.data(), closing.size()) < 0);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal); // kept back until this returns, and deadly then
}

std::string readableName(const std::type_info& type)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    return name && status == 0 ? name.get() : type.name();
}

std::vector<std::string> stackLines()
{
    std::array<void*, 64> frames{};
    const int count = ::backtrace(frames.data(), static_cast<int>(frames.size()));
    const std::unique_ptr<char*, decltype(&std::free)> symbols(
        ::backtrace_symbols(frames.data(), count), &std::free);
    std::vector<std::string> lines;
    for (int i = 0; symbols && i < count; ++i) {
        lines.emplace_back(symbols.get()[i]);
    }
    return lines;
}

std::string messageOfCurrentException()
{
    std::string name = "std::terminate";
    std::optional<std::string> reason;
    if (const std::exception_ptr thrown = std::current_exception()) {
        try {
            std::rethrow_exception(thrown);
        } catch (const std::exception& error) {
            name = readableName(typeid(error));
            if (error.what() != nullptr && *error.what() != '\0') {
                reason = error.what();
            }
        } catch (...) {
            const std::type_info* type = abi::__cxa_current_exception_type();
            name = type ? readableName(*type) : "unknown";
        }
    }
    return uncaughtMessage(name, reason, stackLines());
}

/// The last-chance hook.
[[noreturn]] void onTerminate() noexcept
{
    const int file = crashFile.load();
    if (file >= 0) {
        try {
            const std::string record =
                crashRecord(std::chrono::system_clock::now(), messageOfCurrentException());
            static_cast<void>(::write(file, record.data(), record.size()) < 0);
        } catch (...) {
            // No memory, say: the signal that follows leaves its record all the same.
        }
    }
    if (terminateBefore) {
        terminateBefore();
    }
    std::abort();
}

} // namespace

void installCrashCapture(const std::string& folder)
{
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    // Not waiting: a pipe of that name would hold up the start.
    const int file =
        ::open((folder + "/crashes.log").c_str(),
               O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0644);
    const int before = crashFile.exchange(file);
    if (before >= 0) {
        ::close(before);
    }
    const std::terminate_handler terminateNow = std::set_terminate(onTerminate);
    if (terminateNow != onTerminate) {
        terminateBefore = terminateNow;
    }
    useAlternateSignalStack();
    struct sigaction action
    {};
    action.sa_handler = onFatalSignal;
    // What `signal` means here, and the alternate stack besides.
    action.sa_flags = SA_RESTART | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (const int signal : fatalSignals) {
        ::sigaction(signal, &action, nullptr);
    }
}

std::string uncaughtMessage(std::string_view name, const std::optional<std::string>& reason,
                            const std::vector<std::string>& stack)
{
    std::string message =
        "uncaught exception: " + std::string(name) + "\nreason: " + reason.value_or("—") + "\n";
    const std::size_t kept = std::min(stack.size(), keptStackLines);
    for (std::size_t i = 0; i < kept; ++i) {
        message += (i == 0 ? "" : "\n") + stack[i];
    }
    return message;
}

std::string crashRecord(std::chrono::system_clock::time_point time, std::string_view message)
{
    return "\n=== " + iso8601(time) + " ===\n" + std::string(message) + "\n";
}

std::string_view decimalDigits(int number, std::array<char, 12>& buffer) noexcept
{
    std::size_t first = buffer.size();
    do {
        buffer[--first] = static_cast<char>('0' + number % 10);
        number /= 10;
    } while (number > 0);
    return {&buffer[first], buffer.size() - first};
}

} // namespace zolva
