#include "core/LiveMoRunner.h"

#include "async/Background.h"
#include "core/ListRun.h"
#include "core/StatusRun.h"

#include <QFile>
#include <QString>

#include <algorithm>
#include <string>
#include <utility>

namespace zolva {

namespace {

constexpr const char* toolPath = "/opt/homebrew/bin:/opt/homebrew/sbin:/usr/local/bin:"
                                 "/usr/local/sbin:/usr/bin:/usr/sbin:/bin:/sbin";

MoError notFound(const std::string& path)
{
    return {MoError::BinaryNotFound{path}};
}

tl::expected<std::vector<UninstallApp>, std::string> decodedList(const std::string& json)
{
    return decodeAppList(json);
}

} // namespace

LiveMoRunner::LiveMoRunner(Clock& clock, MoLocation location)
    : m_clock(clock), m_location(std::move(location))
{}

ChildProcess::Command LiveMoRunner::command(const QStringList& arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), QString::fromLatin1(toolPath));
    return {QFile::decodeName(QByteArray::fromStdString(m_location.path)), arguments, environment};
}

std::shared_ptr<StatusStream> LiveMoRunner::statusStream(std::chrono::seconds interval)
{
    auto stream = std::make_shared<StatusStream>();
    if (!isExecutableFile(m_location.path)) {
        stream->finish(notFound(m_location.path));
        return stream;
    }
    const auto seconds = std::max<std::chrono::seconds::rep>(interval.count(), 1);
    auto* run = new StatusRun(m_clock, stream, &m_runs);
    run->start(
        command({QStringLiteral("status"), QStringLiteral("--json"), QStringLiteral("--watch"),
                 QStringLiteral("--interval"), QString::number(seconds) + QLatin1Char('s')}));
    return stream;
}

QCoro::Task<AppList> LiveMoRunner::listApps()
{
    if (!isExecutableFile(m_location.path)) {
        co_return tl::unexpected<MoFailure>(notFound(m_location.path));
    }
    auto* run = new ListRun(m_clock, &m_runs);
    const Mailbox<ListRun::Outcome> mailbox = run->outcome();
    run->start(command({QStringLiteral("uninstall"), QStringLiteral("--list")}), listLimit);

    // From here on this runner may be gone.
    std::optional<ListRun::Outcome> outcome = co_await mailbox.next();
    if (!outcome) {
        co_return tl::unexpected<MoFailure>(SystemError{"mo was ended with the program"});
    }
    if (!*outcome) {
        co_return tl::unexpected<MoFailure>(outcome->error());
    }
    ListRun::Printed printed = std::move(**outcome);
    if (printed.status != 0) {
        co_return tl::unexpected<MoFailure>(
            MoError{MoError::NonZeroExit{printed.status, std::move(printed.errors)}});
    }
    // However much it printed, the main thread does not read it.
    auto apps = co_await background(decodedList, std::move(printed.output));
    if (!apps) {
        co_return tl::unexpected<MoFailure>(MoError{MoError::DecodingFailure{apps.error()}});
    }
    co_return AppList(std::move(*apps));
}

} // namespace zolva
