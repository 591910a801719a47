#include "scanners/AppInventory.h"

#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <plist/plist.h>
#include <unistd.h>

#include <cstdint>
#include <string>

namespace zolva {
namespace {

using test::TempTree;

std::string xml(const std::string& content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n" +
           content + "\n</plist>\n";
}

std::string entry(const std::string& key, const std::string& value)
{
    return "<key>" + key + "</key>" + value;
}

std::string text(const std::string& value)
{
    return "<string>" + value + "</string>";
}

/// The same list in the binary form, by the library.
std::string binaryOf(const std::string& xmlBytes)
{
    plist_t plist = nullptr;
    plist_from_xml(xmlBytes.data(), static_cast<std::uint32_t>(xmlBytes.size()), &plist);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(plist, &bytes, &length);
    std::string binary(bytes, length);
    plist_to_bin_free(bytes);
    plist_free(plist);
    return binary;
}

/// A bundle in a tree of its own.
class BundleVersion : public ::testing::Test
{
protected:
    void info(const std::string& content) { m_tree.text("Foo.app/Contents/Info.plist", content); }
    [[nodiscard]] std::optional<std::string> version() const
    {
        return bundleVersion(m_tree.path("Foo.app"));
    }

    TempTree m_tree;
};

TEST_F(BundleVersion, TheShortVersionComesFirst)
{
    info(xml("<dict>" + entry("CFBundleVersion", text("42")) +
             entry("CFBundleShortVersionString", text("1.2")) + "</dict>"));
    EXPECT_EQ(version(), "1.2");
}

TEST_F(BundleVersion, ABinaryInfoListTellsItToo)
{
    info(binaryOf(xml("<dict>" + entry("CFBundleShortVersionString", text("1.2")) + "</dict>")));
    EXPECT_EQ(version(), "1.2");
}

TEST_F(BundleVersion, TheVersionStandsInWhereTheShortOneIsMissingBlankOrNoText)
{
    for (const std::string& other : {std::string(), entry("CFBundleShortVersionString", text("")),
                                     entry("CFBundleShortVersionString", text(" \n\t\xC2\xA0")),
                                     entry("CFBundleShortVersionString", "<integer>3</integer>")}) {
        info(xml("<dict>" + other + entry("CFBundleVersion", text("42")) + "</dict>"));
        EXPECT_EQ(version(), "42") << other;
    }
}

TEST_F(BundleVersion, WhiteSpaceAroundItIsTrimmed)
{
    info(xml("<dict>" + entry("CFBundleShortVersionString", text("\n 1.2 beta\t \xE2\x80\x83")) +
             "</dict>"));
    EXPECT_EQ(version(), "1.2 beta");
    info(xml("<dict>" + entry("CFBundleVersion", text("  42\r\n")) + "</dict>"));
    EXPECT_EQ(version(), "42");
}

TEST_F(BundleVersion, WithoutAnyOfTheTwoThereIsNone)
{
    info(xml("<dict>" + entry("CFBundleName", text("Foo")) + "</dict>"));
    EXPECT_EQ(version(), std::nullopt);
    info(xml("<dict>" + entry("CFBundleVersion", text("  ")) + "</dict>"));
    EXPECT_EQ(version(), std::nullopt);
    info("no property list");
    EXPECT_EQ(version(), std::nullopt);
    info("");
    EXPECT_EQ(version(), std::nullopt);
}

TEST_F(BundleVersion, AMissingBundleOrInfoListIsNone)
{
    EXPECT_EQ(version(), std::nullopt);
    m_tree.folder("Foo.app/Contents");
    EXPECT_EQ(version(), std::nullopt);
    EXPECT_EQ(bundleVersion(""), std::nullopt);
}

TEST_F(BundleVersion, AFifoOrFolderInItsPlaceIsNotWaitedFor)
{
    m_tree.fifo("Foo.app/Contents/Info.plist");
    EXPECT_EQ(version(), std::nullopt);
    m_tree.folder("Bar.app/Contents/Info.plist");
    EXPECT_EQ(bundleVersion(m_tree.path("Bar.app")), std::nullopt);
}

TEST_F(BundleVersion, ADeviceInItsPlaceIsNotRead)
{
    m_tree.link("Foo.app/Contents/Info.plist", "/dev/zero");
    EXPECT_EQ(version(), std::nullopt);
}

TEST_F(BundleVersion, ALinkedInfoListIsRead)
{
    m_tree.text("real.plist", xml("<dict>" + entry("CFBundleVersion", text("7")) + "</dict>"));
    m_tree.link("Foo.app/Contents/Info.plist", m_tree.path("real.plist"));
    EXPECT_EQ(version(), "7");
}

TEST_F(BundleVersion, AnInfoListOfMoreThanSixteenMebibytesIsNotRead)
{
    info(xml("<dict>" + entry("CFBundleVersion", text("7")) + "</dict>"));
    const std::string path = m_tree.path("Foo.app/Contents/Info.plist");
    ASSERT_EQ(::truncate(path.c_str(), (off_t{16} << 20) + 1), 0);
    EXPECT_EQ(version(), std::nullopt);
}

TEST_F(BundleVersion, AnUnreadableInfoListIsNone)
{
    info(xml("<dict>" + entry("CFBundleVersion", text("7")) + "</dict>"));
    ASSERT_EQ(version(), "7");
    m_tree.setMode("Foo.app/Contents/Info.plist", 0);
    test::withoutOverridingPermissions([this] { EXPECT_EQ(version(), std::nullopt); });
}

TEST_F(BundleVersion, ANulInThePathReadsNoOtherBundle)
{
    info(xml("<dict>" + entry("CFBundleVersion", text("7")) + "</dict>"));
    const std::string listed = m_tree.path("Foo.app/Contents/Info.plist");
    EXPECT_EQ(bundleVersion(listed + std::string(1, '\0')), std::nullopt);
    EXPECT_EQ(bundleVersion(m_tree.path("Foo.app") + std::string("\0x", 2)), std::nullopt);
}

} // namespace
} // namespace zolva
