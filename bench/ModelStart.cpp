#include "core/AppModel.h"
#include "core/SystemPrefsStore.h"

#include <QByteArray>
#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

/// Home and everything that could lead out of it.
void liveIn(const QByteArray& home)
{
    qputenv("HOME", home);
    for (const auto& [name, below] : {std::pair("XDG_CONFIG_HOME", "/.config"),
                                      {"XDG_DATA_HOME", "/.local/share"},
                                      {"XDG_STATE_HOME", "/.local/state"},
                                      {"XDG_CACHE_HOME", "/.cache"},
                                      {"XDG_RUNTIME_DIR", "/.run"}}) {
        qputenv(name, home + below);
    }
}

/// Everything from the preferences' store to the model, as the program makes it.
double millisecondsOfAStart(zolva::Clock& clock)
{
    const auto begin = std::chrono::steady_clock::now();
    const auto store = zolva::systemPrefsStore();
    const zolva::AppModel model(zolva::liveDependencies(clock, *store));
    const std::chrono::duration<double, std::milli> spent =
        std::chrono::steady_clock::now() - begin;
    return spent.count();
}

} // namespace

/// Builds the model in the given home, without a window, and tells how long that took.
int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: model-start HOME\n");
        return 2;
    }
    liveIn(arguments[1]);
    const QCoreApplication application(count, arguments);
    zolva::SystemClock clock;

    const double first = millisecondsOfAStart(clock);
    std::vector<double> later(201);
    for (double& one : later) {
        one = millisecondsOfAStart(clock);
        QCoreApplication::processEvents();
    }
    std::sort(later.begin(), later.end());
    std::printf("first %.3f ms, median of %zu more %.3f ms, slowest %.3f ms\n", first, later.size(),
                later[later.size() / 2], later.back());
    return 0;
}
