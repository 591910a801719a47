#include "scanners/LeftoverScan.h"

#include "RandomStorage.h"
#include "support/DroppedCapabilities.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zolva {
namespace {

using test::blocksOf;
using test::RandomStorage;
using test::ScopedHome;
using test::TempTree;
using Texts = std::vector<std::string>;

UninstallApp appOf(const std::string& name, const std::string& bundleID, const std::string& path)
{
    UninstallApp app;
    app.name = name;
    app.bundleID = bundleID;
    app.path = path;
    return app;
}

/// A home folder with the usual application, Foo, whose bundle is there and has no bytes.
class LeftoverScan : public ::testing::Test
{
protected:
    LeftoverScan() { m_tree.folder("Applications/Foo.app"); }

    void block(const std::string& relative, int blocks = 1)
    {
        m_tree.text(relative, "");
        RandomStorage(m_tree, 1).file(relative, blocks);
    }

    /// The rows of `app`, as "loc path n b [shared with]".
    [[nodiscard]] Texts rows(const std::vector<UninstallApp>& others = {}) const
    {
        std::vector<UninstallApp> apps = others;
        apps.push_back(m_app);
        Texts texts;
        for (const ResidueRow& row : scanResidue(m_app, apps)) {
            texts.push_back(row.loc + " " + row.p + " " + std::to_string(row.n) + " " +
                            std::to_string(row.b) + (row.shared ? " shared with " : "") +
                            row.sharedWith.value_or(""));
        }
        return texts;
    }

    TempTree m_tree;
    ScopedHome m_home{m_tree.root()};
    UninstallApp m_app = appOf("Foo", "org.foo", m_tree.path("Applications/Foo.app"));
    const std::string m_bundleRow = "Application bundle ~/Applications/Foo.app 1 0";
};

TEST_F(LeftoverScan, FindsEveryPlaceAtItsExactPath)
{
    int blocks = 12;
    const Texts below = {"Applications/Foo.app/data",
                         "Library/Caches/org.foo/data",
                         "Library/Containers/org.foo/data",
                         "Library/Group Containers/org.foo/data",
                         "Library/Preferences/org.foo.plist",
                         "Library/Saved Application State/org.foo.savedState/data",
                         "Library/WebKit/org.foo/data",
                         "Library/HTTPStorages/org.foo/data",
                         "Library/Cookies/org.foo.binarycookies",
                         "Library/Application Support/Foo/data",
                         "Library/Logs/Foo/data"};
    for (const std::string& path : below) {
        block(path, --blocks);
    }
    EXPECT_EQ(rows(), (Texts{"Application bundle ~/Applications/Foo.app 1 45056",
                             "Caches ~/Library/Caches/org.foo 1 40960",
                             "Containers ~/Library/Containers/org.foo 1 36864",
                             "Group Containers ~/Library/Group Containers/org.foo 1 32768",
                             "Preferences ~/Library/Preferences/org.foo.plist 1 28672",
                             "Saved application state ~/Library/Saved Application "
                             "State/org.foo.savedState 1 24576",
                             "WebKit storage ~/Library/WebKit/org.foo 1 20480",
                             "HTTP storage ~/Library/HTTPStorages/org.foo 1 16384",
                             "Cookies ~/Library/Cookies/org.foo.binarycookies 1 12288",
                             "Application Support ~/Library/Application Support/Foo 1 8192",
                             "Logs ~/Library/Logs/Foo 1 4096"}));
}

TEST_F(LeftoverScan, RowsAreSortedBySizeAndEqualOnesKeepTheOrderOfThePlaces)
{
    block("Library/Logs/Foo/a", 3);
    block("Library/Cookies/org.foo.binarycookies", 2);
    block("Library/Caches/org.foo/a", 1);
    block("Library/Caches/org.foo/b", 1);
    block("Library/Containers/org.foo/a", 2);
    EXPECT_EQ(rows(),
              (Texts{"Logs ~/Library/Logs/Foo 1 12288", "Caches ~/Library/Caches/org.foo 2 8192",
                     "Containers ~/Library/Containers/org.foo 1 8192",
                     "Cookies ~/Library/Cookies/org.foo.binarycookies 1 8192", m_bundleRow}));
}

TEST_F(LeftoverScan, RowsHaveIdentifiersOfTheirOwn)
{
    block("Library/Logs/Foo/a");
    const auto first = scanResidue(m_app, {m_app});
    const auto second = scanResidue(m_app, {m_app});
    ASSERT_EQ(first.size(), 2U);
    ASSERT_EQ(second.size(), 2U);
    EXPECT_FALSE(first[0].id == first[1].id);
    EXPECT_FALSE(first[0].id == second[0].id);
}

TEST_F(LeftoverScan, AnIdentifierOfUnknownBuildsNoBundleKeyedPlaceAndNamesAreStillLookedAt)
{
    m_app.bundleID = "unknown";
    block("Library/Caches/unknown/a");
    block("Library/Preferences/unknown.plist");
    block("Library/Logs/Foo/a");
    EXPECT_EQ(rows(), (Texts{"Logs ~/Library/Logs/Foo 1 4096", m_bundleRow}));
}

TEST_F(LeftoverScan, ANameThatHoldsASlashBuildsNoNameKeyedPlace)
{
    m_app.name = "Foo/Bar";
    block("Library/Logs/Foo/Bar/a");
    block("Library/Application Support/Foo/Bar/a");
    block("Library/Caches/org.foo/a");
    EXPECT_EQ(rows(), (Texts{"Caches ~/Library/Caches/org.foo 1 4096", m_bundleRow}));
}

TEST_F(LeftoverScan, ANameOfCachesIsANameLikeAnyOther)
{
    m_app.name = "Caches";
    block("Library/Logs/Caches/a");
    block("Library/Caches/foreign/a");
    EXPECT_EQ(rows(), (Texts{"Logs ~/Library/Logs/Caches 1 4096", m_bundleRow}));
}

TEST_F(LeftoverScan, TwoCopiesShareTheirLeftoversAndNeitherSharesItsBundle)
{
    block("Library/Caches/org.foo/a", 2);
    block("Library/Logs/Foo/a");
    const UninstallApp copy = appOf("Foo", "org.foo", m_tree.folder("Applications/Old/Foo.app"));
    EXPECT_EQ(rows({copy}), (Texts{"Caches ~/Library/Caches/org.foo 1 8192 shared with Foo",
                                   "Logs ~/Library/Logs/Foo 1 4096 shared with Foo", m_bundleRow}));
    const auto rowsOfCopy = scanResidue(copy, {m_app, copy});
    ASSERT_EQ(rowsOfCopy.size(), 3U);
    EXPECT_TRUE(rowsOfCopy[0].shared);
    EXPECT_TRUE(rowsOfCopy[1].shared);
    EXPECT_EQ(rowsOfCopy[2].loc, "Application bundle");
    EXPECT_FALSE(rowsOfCopy[2].shared);
    EXPECT_EQ(rowsOfCopy[2].sharedWith, std::nullopt);
}

TEST_F(LeftoverScan, AnEmptyFolderYieldsNoRowAndABundleWithoutBytesStillDoes)
{
    m_tree.folder("Library/Caches/org.foo");
    m_tree.folder("Library/Application Support/Foo/empty");
    m_tree.text("Library/Preferences/org.foo.plist", "");
    EXPECT_EQ(rows(), Texts{m_bundleRow});
}

TEST_F(LeftoverScan, AnIdentifierInUpperCaseDoesNotMatchAFolderInLowerCase)
{
    m_app.bundleID = "ORG.FOO";
    block("Library/Caches/org.foo/a");
    EXPECT_EQ(rows(), Texts{m_bundleRow});
}

TEST_F(LeftoverScan, NothingThatMerelyBeginsAlikeIsFound)
{
    block("Library/Caches/org.foo.helper/a");
    block("Library/Caches/org.foo2/a");
    block("Library/Preferences/org.foo.helper.plist");
    block("Library/Preferences/org.foo");
    block("Library/Logs/Foo 2/a");
    block("Library/Cookies/org.foo");
    EXPECT_EQ(rows(), Texts{m_bundleRow});
}

TEST_F(LeftoverScan, TheSameNameSharesTheNameKeyedRowsOnly)
{
    block("Library/Caches/org.foo/a", 3);
    block("Library/Application Support/Foo/a", 2);
    block("Library/Logs/Foo/a");
    EXPECT_EQ(rows({appOf("Foo", "com.other", "/x")}),
              (Texts{"Caches ~/Library/Caches/org.foo 1 12288",
                     "Application Support ~/Library/Application Support/Foo 1 8192 shared with Foo",
                     "Logs ~/Library/Logs/Foo 1 4096 shared with Foo", m_bundleRow}));
}

TEST_F(LeftoverScan, TheSameIdentifierSharesTheIdentifierKeyedRowsAndTheFirstOwnerIsNamed)
{
    block("Library/Caches/org.foo/a", 3);
    block("Library/Logs/Foo/a");
    EXPECT_EQ(rows({appOf("Near", "org.foo2", "/a"), appOf("foo", "ORG.FOO", "/b"),
                    appOf("First", "org.foo", "/c"), appOf("Second", "org.foo", "/d")}),
              (Texts{"Caches ~/Library/Caches/org.foo 1 12288 shared with First",
                     "Logs ~/Library/Logs/Foo 1 4096", m_bundleRow}));
}

TEST_F(LeftoverScan, AnEntryOfTheSameIdIsTheApplicationItself)
{
    block("Library/Caches/org.foo/a");
    UninstallApp twin = m_app;
    twin.name = "Foo listed twice";
    EXPECT_EQ(rows({twin}), (Texts{"Caches ~/Library/Caches/org.foo 1 4096", m_bundleRow}));
    // Identifier and path run together without a separator.
    const std::string path = m_app.path;
    const UninstallApp split = appOf("Split", "org.foo" + path.substr(0, 4), path.substr(4));
    EXPECT_EQ(split.id(), m_app.id());
}

TEST_F(LeftoverScan, AnApplicationThatIsNotInTheListIsScannedAlike)
{
    block("Library/Caches/org.foo/a");
    EXPECT_EQ(scanResidue(m_app, {}).size(), 2U);
}

TEST_F(LeftoverScan, WhenBothKeysAreUnusableTheBundleRowIsLeft)
{
    m_app.bundleID = "null";
    m_app.name = "--";
    block("Library/Logs/--/a");
    EXPECT_EQ(rows(), Texts{m_bundleRow});
}

TEST_F(LeftoverScan, ABundleOutsideTheManagedPlacesOrProtectedIsDropped)
{
    block("Library/Logs/Foo/a");
    const Texts onlyLogs = {"Logs ~/Library/Logs/Foo 1 4096"};
    for (const std::string& path :
         {std::string("/usr/bin"), std::string("/"), std::string(), std::string("Foo.app"),
          m_tree.root(), m_tree.folder("Library"), m_tree.path("Library/Caches"),
          m_tree.path("Applications"), m_tree.path("Applications/Foo.app/../../Documents"),
          m_tree.path("Applications/../.."), std::string("~/Applications/Foo.app")}) {
        m_app.path = path;
        EXPECT_EQ(rows(), onlyLogs) << path;
    }
}

TEST_F(LeftoverScan, AMissingBundleIsDropped)
{
    m_app.path = m_tree.path("Applications/Gone.app");
    EXPECT_EQ(rows(), Texts{});
}

TEST_F(LeftoverScan, ABundlePathWithTrailingSlashesIsTheSameBundle)
{
    m_app.path += "//";
    EXPECT_EQ(rows(), Texts{m_bundleRow});
}

TEST_F(LeftoverScan, ALeftoverThatIsALinkCountsAsTheLink)
{
    m_tree.file("elsewhere/large", 100'000);
    m_tree.folder("Library/Caches");
    // Too long to be kept in the inode, so that the link has a block of its own.
    const std::string roundabout = m_tree.root() + std::string(100, '/') + "elsewhere";
    const std::string link = m_tree.link("Library/Caches/org.foo", roundabout);
    Texts expected;
    if (blocksOf(link) > 0) {
        expected.push_back("Caches ~/Library/Caches/org.foo 1 " + std::to_string(blocksOf(link)));
    }
    expected.push_back(m_bundleRow);
    EXPECT_EQ(rows(), expected);
}

TEST_F(LeftoverScan, ADanglingLinkIsNothing)
{
    m_tree.folder("Library/Logs");
    m_tree.link("Library/Logs/Foo", std::string(100, 'n'));
    EXPECT_EQ(rows(), Texts{m_bundleRow});
}

TEST_F(LeftoverScan, ANulInAKeyOrPathNeverReachesTheContainerBeforeIt)
{
    block("Library/Caches/foreign/a");
    block("Library/Logs/foreign/a");
    m_app.bundleID = std::string(1, '\0');
    m_app.name = std::string("\0x", 2);
    EXPECT_EQ(rows(), Texts{m_bundleRow});
    m_app.path = m_tree.path("Applications") + std::string("/\0", 2);
    EXPECT_EQ(rows(), Texts{});
}

TEST_F(LeftoverScan, BlanksAroundAUsableIdentifierStayInThePath)
{
    m_app.bundleID = " org.foo ";
    block("Library/Caches/org.foo/a");
    block("Library/Caches/ org.foo /a", 2);
    EXPECT_EQ(rows(), (Texts{"Caches ~/Library/Caches/ org.foo  1 8192", m_bundleRow}));
}

TEST_F(LeftoverScan, AnUnreadablePlaceHasNoBytesAndYieldsNoRow)
{
    block("Library/Caches/org.foo/a");
    m_tree.setMode("Library/Caches/org.foo", 0);
    test::withoutOverridingPermissions([this] { EXPECT_EQ(rows(), Texts{m_bundleRow}); });
    m_tree.setMode("Applications/Foo.app", 0);
    test::withoutOverridingPermissions([this] { EXPECT_EQ(rows(), Texts{m_bundleRow}); });
}

TEST(UsableIdentifier, PlaceholdersAreNoneWithBlanksAroundThemToo)
{
    for (const std::string text :
         {"", "unknown", "Unknown", "UNKNOWN", "N/A", "--", "null", "(null)", "nil", ".", ".."}) {
        EXPECT_FALSE(isUsableIdentifier(text)) << text;
        EXPECT_FALSE(isUsableIdentifier(" \t" + text + "\n\xC2\xA0")) << text;
    }
}

TEST(UsableIdentifier, SlashesAndLeadingDoubleDotsMakeNone)
{
    for (const char* text : {"/", "a/b", "a/", "/a", "../x", "..x", "...", " ..x", "../.."}) {
        EXPECT_FALSE(isUsableIdentifier(text)) << text;
    }
}

TEST(UsableIdentifier, OtherTextsAreUsableAsTheyStand)
{
    for (const char* text : {"org.foo", "unKnown", "Null", "NIL", "n", "-", "---", ".foo", "a..",
                             "Caches", " org.foo ", "\xFF", "unknown2", "(null"}) {
        EXPECT_TRUE(isUsableIdentifier(text)) << text;
    }
}

} // namespace
} // namespace zolva
