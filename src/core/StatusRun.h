#pragma once

#include "core/ChildProcess.h"
#include "core/LineSplitter.h"
#include "core/StatusStream.h"
#include "core/StderrBox.h"

#include <QObject>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zolva {

/// The producer of one status stream: runs the tool, decodes its lines, and says at its end what
/// became of it. A bad line never ends the stream. Deletes itself when the child has ended.
class StatusRun final : public QObject
{
    Q_OBJECT

public:
    StatusRun(Clock& clock, const std::shared_ptr<StatusStream>& stream, QObject* parent);
    /// A stream that still waits ends without a failure.
    ~StatusRun() override;

    void start(const ChildProcess::Command& command);

private:
    using Readings = std::vector<StatusResult>;

    void takeOutput(const QByteArray& bytes);
    void takeLine(const LineSplitter::Line& line, Readings& readings);
    /// False if this object is gone: a reading wakes the reader, which may end whatever it likes.
    [[nodiscard]] bool deliver(Readings readings);
    void breakOff(const QString& why);
    void finish(std::optional<MoFailure> failure);
    void handleEnd(int status);
    [[nodiscard]] std::optional<MoFailure> outcome(int status) const;

    ChildProcess m_child;
    std::weak_ptr<StatusStream> m_stream; ///< the reader's
    LineSplitter m_lines;
    StderrBox m_stderr;
    std::int64_t m_count = 0;
    std::optional<std::string> m_lastError;
};

} // namespace zolva
