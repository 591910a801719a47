#pragma once

#include "core/Mailbox.h"
#include "core/MoError.h"
#include "core/StatusRecords.h"

#include <QCoroTask>

#include <functional>
#include <optional>
#include <utility>

namespace zolva {

/// The readings of one run of the tool, from its producer to one reader. The reader owns it: when
/// it is dropped, or cancelled, the producer is told to stop. Main thread.
class StatusStream
{
public:
    StatusStream() = default;
    ~StatusStream() { cancel(); }
    StatusStream(const StatusStream&) = delete;
    StatusStream& operator=(const StatusStream&) = delete;

    /// The next reading, or nothing at the end; `failure` then tells of an end that was none of the
    /// reader's.
    [[nodiscard]] QCoro::Task<std::optional<StatusResult>> next() const
    {
        return m_readings.next();
    }
    [[nodiscard]] const std::optional<MoFailure>& failure() const { return m_failure; }

    /// Ends the stream at once and without a failure; what was not read yet is forgotten.
    void cancel()
    {
        if (m_finished) {
            return;
        }
        m_finished = true;
        m_readings.clear();
        // First the producer: the reader, once woken, may already start another.
        if (const auto stop = std::exchange(m_stop, {})) {
            stop();
        }
        m_readings.close();
    }

    /// For the producer.
    void onCancel(std::function<void()> stop) { m_stop = std::move(stop); }
    void send(StatusResult reading) const { m_readings.send(std::move(reading)); }
    void finish(std::optional<MoFailure> failure)
    {
        if (!m_finished) {
            m_finished = true;
            m_failure = std::move(failure);
            m_stop = {};
            m_readings.close();
        }
    }
    [[nodiscard]] bool isFinished() const { return m_finished; }

private:
    Mailbox<StatusResult> m_readings;
    std::optional<MoFailure> m_failure;
    std::function<void()> m_stop;
    bool m_finished = false;
};

} // namespace zolva
