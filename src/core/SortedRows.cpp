#include "core/SortedRows.h"

#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace zolva {

namespace {

/// What a row is ordered by.
struct Facts
{
    std::int64_t size = 0;
    std::int64_t age = 0;
    const std::string* name = nullptr;
    std::string path;
};

Facts factsOf(const Category& row)
{
    return {totalBytes(row), 0, &row.name, row.id};
}

Facts factsOf(const Project& row)
{
    return {row.b, row.age, &row.p, projectKey(row)};
}

Facts factsOf(const InstallerItem& row)
{
    return {row.b, row.age, &row.name, row.p};
}

Facts factsOf(const UninstallApp& row)
{
    return {row.bundleBytes.value_or(0), 0, &row.name, row.path};
}

struct Place
{
    std::int64_t rank = 0;
    std::optional<QCollatorSortKey> name; ///< made once: comparing names afresh costs too much
    std::string path;
    std::size_t row = 0;
};

std::int64_t rankOf(const Facts& facts, SortKey key)
{
    switch (key) {
    case SortKey::SizeDesc:
        return -facts.size;
    case SortKey::SizeAsc:
        return facts.size;
    case SortKey::AgeDesc:
        return -facts.age;
    case SortKey::AgeAsc:
        return facts.age;
    case SortKey::NameAsc:
        break;
    }
    return 0;
}

bool comesFirst(const Place& a, const Place& b)
{
    if (a.rank != b.rank) {
        return a.rank < b.rank;
    }
    if (a.name && b.name) {
        if (const int order = a.name->compare(*b.name); order != 0) {
            return order < 0;
        }
    }
    return a.path < b.path;
}

template <typename Row>
std::vector<Row> sorted(std::vector<Row> rows, SortKey key, const QCollator& names)
{
    std::vector<Place> places;
    places.reserve(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        Facts facts = factsOf(rows[row]);
        Place place{rankOf(facts, key), std::nullopt, std::move(facts.path), row};
        if (key == SortKey::NameAsc) {
            place.name = names.sortKey(QString::fromStdString(*facts.name));
        }
        places.push_back(std::move(place));
    }
    std::stable_sort(places.begin(), places.end(), comesFirst);

    std::vector<Row> inOrder;
    inOrder.reserve(rows.size());
    for (const Place& place : places) {
        inOrder.push_back(std::move(rows[place.row]));
    }
    return inOrder;
}

} // namespace

std::vector<Category> sortedCategories(std::vector<Category> rows, SortKey key,
                                       const QCollator& names)
{
    return sorted(std::move(rows), key, names);
}

std::vector<Project> sortedProjects(std::vector<Project> rows, SortKey key, const QCollator& names)
{
    return sorted(std::move(rows), key, names);
}

std::vector<InstallerItem> sortedInstallers(std::vector<InstallerItem> rows, SortKey key,
                                            const QCollator& names)
{
    return sorted(std::move(rows), key, names);
}

std::vector<UninstallApp> sortedApps(std::vector<UninstallApp> rows, SortKey key,
                                     const QCollator& names)
{
    return sorted(std::move(rows), key, names);
}

std::vector<std::size_t> placesByName(const std::vector<AnalyzeEntry>& entries,
                                      const QCollator& names)
{
    std::vector<Place> order;
    order.reserve(entries.size());
    for (const AnalyzeEntry& entry : entries) {
        order.push_back(
            {0, names.sortKey(QString::fromStdString(entry.name)), entry.path, order.size()});
    }
    std::stable_sort(order.begin(), order.end(), comesFirst);

    std::vector<std::size_t> places;
    places.reserve(order.size());
    for (const Place& place : order) {
        places.push_back(place.row);
    }
    return places;
}

} // namespace zolva
