#pragma once

#include "core/StatusRecords.h"
#include "files/Records.h"
#include "scanners/AppInventory.h"
#include "scanners/StorageAnalysis.h"

#include <QVariantList>
#include <QVariantMap>

#include <string>
#include <vector>

/// The rows of the lists from what a screen's test says of them, and lists by the dozen.
namespace zolva::test {

[[nodiscard]] std::vector<Category> categoriesFrom(const QVariantList& rows);
[[nodiscard]] std::vector<Project> projectsFrom(const QVariantList& rows);
[[nodiscard]] std::vector<InstallerItem> installersFrom(const QVariantList& rows);
[[nodiscard]] std::vector<UninstallApp> appsFrom(const QVariantList& rows);
[[nodiscard]] AnalyzeResult analysisFrom(const QVariantMap& result);
[[nodiscard]] std::vector<ResidueRow> leftoversFrom(const QVariantList& rows);
[[nodiscard]] StatusResult statusFrom(const QVariantMap& fields);

[[nodiscard]] std::vector<Category> manyCategories(int count, int pathsEach);
[[nodiscard]] std::vector<Project> manyProjects(int count);
[[nodiscard]] std::vector<InstallerItem> manyInstallers(int count);
[[nodiscard]] std::vector<UninstallApp> manyApps(int count);
[[nodiscard]] AnalyzeResult manyEntries(const std::string& path, int count);

} // namespace zolva::test
