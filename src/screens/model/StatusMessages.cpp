#include "screens/model/StatusMessages.h"

#include "files/FixedText.h"

#include "screens/model/ShownText.h"

#include <algorithm>
#include <numeric>

namespace zolva {

namespace {

constexpr std::size_t fewestSamples = 5;
constexpr std::size_t mostSamples = 20;

QString percent(double value)
{
    return QString::fromStdString(fixedText(value, 0)) + QLatin1Char('%');
}

QString spokenSeries(const QString& name, const std::vector<double>& series)
{
    if (series.empty()) {
        return name + QStringLiteral(" not read yet");
    }
    return name + QLatin1Char(' ') + percent(series.back()) + QStringLiteral(", highest ") +
           percent(*std::max_element(series.begin(), series.end()));
}

} // namespace

QString statusFooter(const std::optional<StatusResult>& status)
{
    if (!status) {
        return {};
    }
    const QString dot = QStringLiteral(" · ");
    return QStringLiteral("Polled live from mo. ") + shownText(status->hardware.model) + dot +
           shownText(status->hardware.cpuModel) + dot + QStringLiteral("uptime ") +
           shownText(status->uptime) + QStringLiteral(". Zolva reads status only.");
}

QString spokenChart(const std::vector<double>& cpu, const std::vector<double>& mem)
{
    return spokenSeries(QStringLiteral("CPU"), cpu) + QStringLiteral(". ") +
           spokenSeries(QStringLiteral("Memory"), mem);
}

bool isCpuSustained(const std::vector<double>& cpu, std::int64_t threshold)
{
    if (cpu.size() < fewestSamples) {
        return false;
    }
    const std::size_t count = std::min(cpu.size(), mostSamples);
    const double sum =
        std::accumulate(cpu.end() - static_cast<std::ptrdiff_t>(count), cpu.end(), 0.0);
    return sum / static_cast<double>(count) > static_cast<double>(threshold);
}

QString sustainedWarning(std::int64_t threshold)
{
    return QStringLiteral("CPU has been above ") + QString::number(threshold) +
           QStringLiteral("% for a minute.");
}

} // namespace zolva
