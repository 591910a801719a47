#include "scanners/CleanScan.h"

#include <gtest/gtest.h>

#include <set>

namespace zolva::test {

TEST(CleanCatalog, HoldsSevenRowsInTheirOrder)
{
    struct Row
    {
        std::string name, desc, path;
        bool recursive;
    };
    const std::vector<Row> rows = {
        {"Xcode DerivedData", "Build intermediates Xcode recreates",
         "Library/Developer/Xcode/DerivedData", true},
        {"Xcode device support", "Symbols for iOS devices you've connected",
         "Library/Developer/Xcode/iOS DeviceSupport", true},
        {"Application caches", "App caches macOS rebuilds on demand", "Library/Caches", true},
        {"Application logs", "Diagnostic logs apps rewrite", "Library/Logs", true},
        {"Saved application state", "Window state apps recreate", "Library/Saved Application State",
         true},
        {"npm cache", "Downloaded npm packages", ".npm/_cacache", false},
        {"Go build cache", "Compiled Go objects", "Library/Caches/go-build", false},
    };
    ASSERT_EQ(cleanCatalog.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(cleanCatalog[i].name, rows[i].name);
        EXPECT_EQ(cleanCatalog[i].desc, rows[i].desc);
        EXPECT_EQ(cleanCatalog[i].path, rows[i].path);
        EXPECT_EQ(cleanCatalog[i].recursive, rows[i].recursive) << rows[i].name;
    }
}

TEST(CleanCatalog, ProtectsTwelveNames)
{
    const std::set<std::string> expected = {"CloudKit",
                                            "CloudDocs",
                                            "com.apple.cloudd",
                                            "com.apple.bird",
                                            "com.apple.containermanagerd",
                                            "com.apple.nsurlsessiond",
                                            "com.apple.Safari.SafeBrowsing",
                                            "com.apple.iCloudHelper",
                                            "FamilyCircle",
                                            "Mail",
                                            "Messages",
                                            "Keychains"};
    EXPECT_EQ(std::set<std::string>(protectedCacheNames.begin(), protectedCacheNames.end()),
              expected);
}

TEST(CleanCatalog, FloorIsADecimalMillion)
{
    EXPECT_EQ(minimumBytes, 1'000'000);
}

} // namespace zolva::test
