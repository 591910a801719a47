#include "core/AppModel.h"
#include "core/SystemPrefsStore.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// The longest time in which the event loop did not come round, to a millisecond.
class LoopWatch
{
public:
    LoopWatch()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
        m_timer.start();
    }

    [[nodiscard]] double longest() const { return m_longest.count(); }

private:
    void tick()
    {
        const auto now = std::chrono::steady_clock::now();
        m_longest = std::max(m_longest, Milliseconds(now - m_last));
        m_last = now;
    }

    QTimer m_timer;
    std::chrono::steady_clock::time_point m_last = std::chrono::steady_clock::now();
    Milliseconds m_longest{0};
};

/// One category whose paths are all folders below `folder`.
zolva::Category categoryOf(const std::string& folder, int count)
{
    zolva::Category all;
    all.id = all.name = "Items";
    for (int i = 0; i < count; ++i) {
        zolva::CatPath path;
        path.p = folder;
        path.p += "/i";
        path.p += std::to_string(i);
        path.b = 4096;
        all.paths.push_back(std::move(path));
    }
    all.items = count;
    return all;
}

} // namespace

/// A clean of the folders i0, i1 … below FOLDER, in the home of the environment, by the whole
/// model, as the window runs it; tells the longest gap of the event loop.
int main(int count, char** arguments)
{
    if (count != 3) {
        std::fprintf(stderr, "usage: run-gap FOLDER COUNT\n");
        return 2;
    }
    const QCoreApplication application(count, arguments);
    zolva::SystemClock clock;
    const auto store = zolva::systemPrefsStore();
    zolva::AppModel model(zolva::liveDependencies(clock, *store));
    model.lists().takeCategories({categoryOf(arguments[1], std::atoi(arguments[2]))});
    model.lists().setClean({"Items"}, true);
    model.raiseSheet("erase");
    if (!model.sheet()) {
        std::fprintf(stderr, "run-gap: nothing to remove\n");
        return 1;
    }

    const LoopWatch watch;
    const auto begin = std::chrono::steady_clock::now();
    zolva::RunState& runs = model.removal().runs();
    QObject::connect(&runs, &zolva::RunState::bulkChanged, &application, [&runs] {
        if (!runs.bulk()) {
            QCoreApplication::quit();
        }
    });
    QTimer::singleShot(0, &model, [&model] { model.runSheet(); });
    QCoreApplication::exec();
    const Milliseconds spent = std::chrono::steady_clock::now() - begin;
    std::printf("%.0f ms, longest gap %.1f ms\n", spent.count(), watch.longest());
    return 0;
}
