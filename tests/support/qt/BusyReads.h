#pragma once

#include "async/Background.h"

#include "support/qt/EventLoop.h"

#include <QThreadPool>

#include <algorithm>
#include <future>
#include <vector>

namespace zolva::test {

/// As long as it lives, every thread for reads in the background has one that does not end, and
/// whatever is read next has to wait.
class BusyReads
{
public:
    BusyReads()
    {
        // The first one tells how many threads there are.
        m_reads.push_back(background(&waitFor, m_end));
        for (int i = 0; i < QThreadPool::globalInstance()->maxThreadCount(); ++i) {
            m_reads.push_back(background(&waitFor, m_end));
        }
    }
    ~BusyReads()
    {
        m_open.set_value();
        pumpUntil([this] {
            return std::all_of(m_reads.begin(), m_reads.end(),
                               [](const QCoro::Task<>& read) { return read.isReady(); });
        });
    }
    BusyReads(const BusyReads&) = delete;
    BusyReads& operator=(const BusyReads&) = delete;

private:
    static void waitFor(const std::shared_future<void>& end) { end.wait(); }

    std::promise<void> m_open;
    std::shared_future<void> m_end{m_open.get_future()};
    std::vector<QCoro::Task<>> m_reads;
};

} // namespace zolva::test
