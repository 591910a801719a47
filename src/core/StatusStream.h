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

    /// Ends the stream at once and without a failure; what was not read yet is forgotten. After
    /// its end this only tells a producer that is left to stop.
    void cancel()
    {
        const bool wasFinished = std::exchange(m_finished, true);
        // First the producer: the reader, once woken, may already start another.
        if (const auto stop = std::exchange(m_stop, {})) {
            stop();
        }
        if (!wasFinished) {
            m_readings.clear();
            m_readings.close();
        }
    }

    /// For the producer.
    void onCancel(std::function<void()> stop) { m_stop = std::move(stop); }
    void send(StatusResult reading) const { m_readings.send(std::move(reading)); }
    void finish(std::optional<MoFailure> failure)
    {
        m_stop = {};
        end(std::move(failure));
    }
    /// The end of what can be read, while the producer goes on until it is told to stop.
    void breakOff(MoFailure failure) { end(std::move(failure)); }
    [[nodiscard]] bool isFinished() const { return m_finished; }

private:
    void end(std::optional<MoFailure> failure)
    {
        if (!m_finished) {
            m_finished = true;
            m_failure = std::move(failure);
            m_readings.close();
        }
    }

    Mailbox<StatusResult> m_readings;
    std::optional<MoFailure> m_failure;
    std::function<void()> m_stop;
    bool m_finished = false;
};

} // namespace zolva
