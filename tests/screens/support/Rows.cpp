#include "Rows.h"

#include "files/PathText.h"

#include <QDateTime>

#include <chrono>
#include <optional>
#include <string>

namespace zolva::test {

namespace {

constexpr std::int64_t megabyte = 1'000'000;

std::string text(const QVariantMap& row, const char* field)
{
    return row.value(QString::fromUtf8(field)).toString().toStdString();
}

/// JavaScript's numbers are floating ones.
std::int64_t number(const QVariantMap& row, const char* field)
{
    return static_cast<std::int64_t>(row.value(QString::fromUtf8(field)).toDouble());
}

bool flag(const QVariantMap& row, const char* field)
{
    return row.value(QString::fromUtf8(field)).toBool();
}

template <typename Row, typename Read>
std::vector<Row> allOf(const QVariantList& rows, Read read)
{
    std::vector<Row> all;
    for (const QVariant& row : rows) {
        all.push_back(read(row.toMap()));
    }
    return all;
}

template <typename Row, typename Make>
std::vector<Row> many(int count, Make make)
{
    std::vector<Row> all;
    for (int number = 1; number <= count; ++number) {
        all.push_back(make(std::to_string(number), (count - number + 1) * megabyte));
    }
    return all;
}

CatPath pathFrom(const QVariantMap& row)
{
    CatPath path;
    path.p = text(row, "p");
    path.b = number(row, "b");
    path.prot = flag(row, "prot");
    path.sudo = flag(row, "sudo");
    return path;
}

/// What stands there is called as its path ends, unless it is called otherwise.
std::string nameOf(const QVariantMap& row)
{
    const std::string name = text(row, "name");
    return name.empty() ? lastComponent(text(row, "path")) : name;
}

} // namespace

std::vector<Category> categoriesFrom(const QVariantList& rows)
{
    return allOf<Category>(rows, [](const QVariantMap& row) {
        Category made;
        made.id = made.name = text(row, "name");
        made.desc = text(row, "desc");
        made.sudo = flag(row, "sudo");
        made.paths = allOf<CatPath>(row.value(QStringLiteral("paths")).toList(), pathFrom);
        made.items = static_cast<std::int64_t>(made.paths.size());
        return made;
    });
}

std::vector<Project> projectsFrom(const QVariantList& rows)
{
    return allOf<Project>(rows, [](const QVariantMap& row) {
        Project made;
        made.p = text(row, "p");
        made.artifact = text(row, "artifact");
        made.b = number(row, "b");
        made.age = number(row, "age");
        return made;
    });
}

std::vector<InstallerItem> installersFrom(const QVariantList& rows)
{
    return allOf<InstallerItem>(rows, [](const QVariantMap& row) {
        InstallerItem made;
        made.name = text(row, "name");
        made.src = text(row, "src");
        made.p = text(row, "p");
        made.b = number(row, "b");
        made.age = number(row, "age");
        return made;
    });
}

std::vector<UninstallApp> appsFrom(const QVariantList& rows)
{
    return allOf<UninstallApp>(rows, [](const QVariantMap& row) {
        UninstallApp made;
        made.name = text(row, "name");
        made.bundleID = text(row, "bundleID");
        made.path = text(row, "path");
        made.source = text(row, "source");
        made.size = text(row, "size");
        if (row.contains(QStringLiteral("version"))) {
            made.version = text(row, "version");
        }
        if (row.contains(QStringLiteral("bundleBytes"))) {
            made.bundleBytes = number(row, "bundleBytes");
        }
        if (row.contains(QStringLiteral("installed"))) {
            const QDate day =
                QDate::fromString(QString::fromStdString(text(row, "installed")), Qt::ISODate);
            made.installedDate =
                TimePoint(std::chrono::milliseconds(day.startOfDay().toMSecsSinceEpoch()));
        }
        return made;
    });
}

std::vector<ResidueRow> leftoversFrom(const QVariantList& rows)
{
    return allOf<ResidueRow>(rows, [](const QVariantMap& row) {
        ResidueRow made;
        made.loc = text(row, "loc");
        made.p = text(row, "p");
        made.n = number(row, "n");
        made.b = number(row, "b");
        made.shared = flag(row, "shared");
        if (row.contains(QStringLiteral("sharedWith"))) {
            made.sharedWith = text(row, "sharedWith");
        }
        return made;
    });
}

StatusResult statusFrom(const QVariantMap& fields)
{
    const auto real = [&fields](const char* field) {
        return fields.value(QString::fromUtf8(field)).toDouble();
    };
    StatusResult one;
    one.healthScore = number(fields, "health");
    one.healthScoreMsg = text(fields, "healthMsg");
    one.cpu.usage = real("cpu");
    one.cpu.load1 = real("load1");
    one.cpu.load5 = real("load5");
    one.cpu.load15 = real("load15");
    one.memory.used = number(fields, "used");
    one.memory.total = number(fields, "total");
    one.memory.usedPercent = real("usedPercent");
    one.memory.pressure = text(fields, "pressure");
    one.hardware.model = text(fields, "model");
    one.hardware.cpuModel = text(fields, "cpuModel");
    one.uptime = text(fields, "uptime");
    return one;
}

std::vector<Category> manyCategories(int count, int pathsEach)
{
    return many<Category>(count, [pathsEach](const std::string& number, std::int64_t bytes) {
        Category made;
        made.id = made.name = "Category " + number;
        made.desc = "What category " + number + " keeps";
        for (int path = 1; path <= pathsEach; ++path) {
            CatPath one;
            one.p = "~/Library/Caches/category" + number + "/path" + std::to_string(path);
            one.b = bytes;
            made.paths.push_back(one);
        }
        made.items = pathsEach;
        return made;
    });
}

std::vector<Project> manyProjects(int count)
{
    return many<Project>(count, [](const std::string& number, std::int64_t bytes) {
        Project made;
        made.p = "~/code/project" + number;
        made.artifact = "node_modules";
        made.b = bytes;
        return made;
    });
}

std::vector<InstallerItem> manyInstallers(int count)
{
    return many<InstallerItem>(count, [](const std::string& number, std::int64_t bytes) {
        InstallerItem made;
        made.name = "installer" + number + ".dmg";
        made.src = "Downloads";
        made.p = "~/Downloads/" + made.name;
        made.b = bytes;
        return made;
    });
}

std::vector<UninstallApp> manyApps(int count)
{
    return many<UninstallApp>(count, [](const std::string& number, std::int64_t bytes) {
        UninstallApp made;
        made.name = "App " + number;
        made.bundleID = "org.example.app" + number;
        made.path = "/Applications/" + made.name + ".app";
        made.bundleBytes = bytes;
        return made;
    });
}

AnalyzeResult analysisFrom(const QVariantMap& result)
{
    AnalyzeResult all;
    all.path = text(result, "path");
    all.overview = all.path.empty();
    all.entries = allOf<AnalyzeEntry>(
        result.value(QStringLiteral("entries")).toList(), [](const QVariantMap& row) {
            return AnalyzeEntry{nameOf(row), text(row, "path"), number(row, "size"),
                                flag(row, "isDir"), std::nullopt};
        });
    all.largeFiles = allOf<LargeFile>(
        result.value(QStringLiteral("largeFiles")).toList(), [](const QVariantMap& row) {
            return LargeFile{nameOf(row), text(row, "path"), number(row, "size")};
        });
    for (const AnalyzeEntry& entry : all.entries) {
        all.totalSize += entry.size;
        ++all.totalFiles;
    }
    if (result.contains(QStringLiteral("totalSize"))) {
        all.totalSize = number(result, "totalSize");
    }
    if (result.contains(QStringLiteral("totalFiles"))) {
        all.totalFiles = number(result, "totalFiles");
    }
    return all;
}

AnalyzeResult manyEntries(const std::string& path, int count)
{
    AnalyzeResult all;
    all.path = path;
    all.entries = many<AnalyzeEntry>(count, [&path](const std::string& number, std::int64_t size) {
        return AnalyzeEntry{"folder " + number, path + "/folder " + number, size, true,
                            std::nullopt};
    });
    for (const AnalyzeEntry& entry : all.entries) {
        all.totalSize += entry.size;
    }
    all.totalFiles = count;
    return all;
}

} // namespace zolva::test
