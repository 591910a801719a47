#include "scanners/AppInventory.h"

#include <gtest/gtest.h>

#include <plist/plist.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zolva {
namespace {

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

std::string repeated(const std::string& part, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += part;
    }
    return all;
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

std::string bigEndian(std::uint64_t value, std::size_t width)
{
    std::string bytes(width, '\0');
    for (std::size_t i = width; i-- > 0; value >>= 8) {
        bytes[i] = static_cast<char>(value & 0xFF);
    }
    return bytes;
}

std::string trailer(std::uint64_t values, std::uint64_t top, std::uint64_t table,
                    char offsetWidth = 4, char referenceWidth = 2)
{
    return std::string(6, '\0') + offsetWidth + referenceWidth + bigEndian(values, 8) +
           bigEndian(top, 8) + bigEndian(table, 8);
}

/// A binary list of values written by hand; the first is the top.
std::string binaryList(const std::vector<std::string>& values)
{
    std::string bytes = "bplist00";
    std::string table;
    for (const std::string& value : values) {
        table += bigEndian(bytes.size(), 4);
        bytes += value;
    }
    return bytes + table + trailer(values.size(), 0, bytes.size());
}

std::string reference(std::uint64_t value)
{
    return bigEndian(value, 2);
}

const std::string keyK = "\x51K";
const std::string textX = "\x51x";
const std::string dictHead = "\xD1";

TEST(PlistText, ReadsBothFormsAlike)
{
    const std::string list = xml("<dict>" + entry("A", "<integer>1</integer>") +
                                 entry("K", text("Caf\xC3\xA9 &amp; more")) + "</dict>");
    EXPECT_EQ(plistText(list, "K"), "Caf\xC3\xA9 & more");
    const std::string binary = binaryOf(list);
    ASSERT_TRUE(binary.starts_with("bplist00"));
    EXPECT_EQ(plistText(binary, "K"), "Caf\xC3\xA9 & more");
}

TEST(PlistText, AByteOrderMarkBeforeXmlIsPassedOver)
{
    EXPECT_EQ(plistText("\xEF\xBB\xBF" + xml("<dict>" + entry("K", text("x")) + "</dict>"), "K"),
              "x");
}

/// With its byte order mark.
std::string utf16Of(const std::u16string& text, bool bigEndian)
{
    std::string bytes;
    for (const char16_t unit : u"\uFEFF" + text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

TEST(PlistText, XmlOfUtf16IsReadInBothByteOrders)
{
    const std::u16string list = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
                                u"<plist version=\"1.0\"><dict><key>K</key>"
                                u"<string>1.2 \u00E9 \u20AC \U0001F600</string></dict></plist>";
    const std::string expected = "1.2 \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80";
    EXPECT_EQ(plistText(utf16Of(list, false), "K"), expected);
    EXPECT_EQ(plistText(utf16Of(list, true), "K"), expected);
}

TEST(PlistText, Utf16ThatIsNoTextIsNothing)
{
    const auto listOf = [](const std::u16string& value) {
        return utf16Of(u"<plist version=\"1.0\"><dict><key>K</key><string>" + value +
                           u"</string></dict></plist>",
                       false);
    };
    ASSERT_EQ(plistText(listOf(u"x"), "K"), "x");
    const std::u16string first(1, char16_t{0xD83D});
    const std::u16string second(1, char16_t{0xDE00});
    ASSERT_EQ(plistText(listOf(first + second), "K"), "\xF0\x9F\x98\x80");
    for (const std::u16string& broken : {first, second, second + first, first + u"x"}) {
        EXPECT_EQ(plistText(listOf(broken), "K"), std::nullopt);
    }
    EXPECT_EQ(plistText(listOf(u"x") + "\n", "K"), std::nullopt) << "half a character";
    for (const std::string bytes : {"\xFF\xFE", "\xFE\xFF", "\xFF\xFE<", "\xFE\xFF\xD8\x3D"}) {
        EXPECT_EQ(plistText(bytes, "K"), std::nullopt);
    }
}

TEST(PlistText, TheLimitsHoldForUtf16AsWell)
{
    const auto nested = [](int levels) {
        std::u16string list = u"<plist version=\"1.0\"><dict><key>K</key><string>x</string>"
                              u"<key>deep</key>";
        for (int i = 0; i < levels; ++i) {
            list += u"<array>";
        }
        for (int i = 0; i < levels; ++i) {
            list += u"</array>";
        }
        return utf16Of(list + u"</dict></plist>", true);
    };
    EXPECT_EQ(plistText(nested(1000), "K"), "x");
    EXPECT_EQ(plistText(nested(400'000), "K"), std::nullopt);
}

TEST(PlistText, ABinaryListWrittenByHandIsRead)
{
    const std::string dict = dictHead + reference(1) + reference(2);
    EXPECT_EQ(plistText(binaryList({dict, keyK, textX}), "K"), "x");
}

TEST(PlistText, AMissingKeyAndAValueThatIsNoTextAreNothing)
{
    for (const std::string value :
         {"<integer>7</integer>", "<real>1.5</real>", "<true/>", "<data>AAAA</data>",
          "<date>2024-01-01T00:00:00Z</date>", "<array><string>x</string></array>",
          "<dict><key>K</key><string>x</string></dict>"}) {
        const std::string list = xml("<dict>" + entry("K", value) + "</dict>");
        EXPECT_EQ(plistText(list, "K"), std::nullopt) << value;
        EXPECT_EQ(plistText(binaryOf(list), "K"), std::nullopt) << value;
        EXPECT_EQ(plistText(list, "Other"), std::nullopt);
    }
}

TEST(PlistText, OnlyADictionaryAtTheTopIsAsked)
{
    for (const std::string top : {"<array><dict><key>K</key><string>x</string></dict></array>",
                                  "<string>K</string>", "<integer>1</integer>"}) {
        EXPECT_EQ(plistText(xml(top), "K"), std::nullopt) << top;
        EXPECT_EQ(plistText(binaryOf(xml(top)), "K"), std::nullopt) << top;
    }
}

TEST(PlistText, AnEmptyTextIsATextAndAnEmptyDictionaryHasNone)
{
    EXPECT_EQ(plistText(xml("<dict>" + entry("K", "<string/>") + "</dict>"), "K"), "");
    EXPECT_EQ(plistText(xml("<dict/>"), "K"), std::nullopt);
}

TEST(PlistText, WhatIsNoPropertyListIsNothing)
{
    for (const std::string bytes :
         {"", " ", "x", "bplist00", "bplist", "<", "<plist", "{ K = x; }", "{\"K\":\"x\"}",
          "<html><body>K</body></html>", "\xFF\xFE<\x01", "<?xml", "<!--", "<plist><dict><key>"}) {
        EXPECT_EQ(plistText(bytes, "K"), std::nullopt) << bytes;
    }
    EXPECT_EQ(plistText(std::string(1000, '\0'), "K"), std::nullopt);
}

TEST(PlistText, AListCutOffAnywhereNeverTellsAnotherText)
{
    const std::string whole = xml("<dict>" + entry("A", "<array><string>y</string></array>") +
                                  entry("K", text("1.2.3")) + "</dict>");
    const std::string binary = binaryOf(whole);
    for (const std::string& bytes : {whole, binary}) {
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            const auto told = plistText(std::string_view(bytes).substr(0, length), "K");
            EXPECT_TRUE(!told || *told == "1.2.3") << length << " gave " << *told;
        }
        ASSERT_EQ(plistText(bytes, "K"), "1.2.3");
    }
}

TEST(PlistText, NoSingleChangedByteEndsTheProgram)
{
    const std::string binary = binaryOf(xml("<dict>" + entry("A", "<array><true/></array>") +
                                            entry("K", text("1.2.3")) + "</dict>"));
    std::size_t refused = 0;
    for (std::size_t at = 0; at < binary.size(); ++at) {
        for (int value = 0; value < 256; value += 3) {
            std::string changed = binary;
            changed[at] = static_cast<char>(value);
            refused += plistText(changed, "K") ? 0U : 1U;
        }
    }
    EXPECT_GT(refused, 0U);
}

TEST(PlistText, XmlOfManyLevelsIsRefusedBeforeItIsFreedByRecursion)
{
    for (const std::string name : {"array", "dict"}) {
        const std::string inner = name == "dict" ? "<dict><key>a</key>" : "<array>";
        const auto nested = [&](int levels) {
            return xml("<dict>" + entry("K", text("x")) + "<key>deep</key>" +
                       repeated(inner, levels) + text("y") + repeated("</" + name + ">", levels) +
                       "</dict>");
        };
        EXPECT_EQ(plistText(nested(1000), "K"), "x") << name;
        EXPECT_EQ(plistText(nested(400'000), "K"), std::nullopt) << name;
        EXPECT_EQ(plistText(repeated(inner, 400'000), "K"), std::nullopt) << name;
    }
}

TEST(PlistText, TenThousandContainersOfXmlAreReadAndOneMoreIsNot)
{
    const auto wide = [](int arrays) {
        return xml("<dict>" + entry("K", text("x")) + "<key>wide</key><array>" +
                   repeated("<array/>", arrays - 2) + "</array></dict>");
    };
    EXPECT_EQ(plistText(wide(10'000), "K"), "x");
    EXPECT_EQ(plistText(wide(10'001), "K"), std::nullopt);
}

TEST(PlistText, XmlOfManyEntitiesIsRefusedBeforeItTakesMinutes)
{
    const auto entities = [](int count) {
        return xml("<dict>" + entry("K", text("x")) + entry("L", text(repeated("&amp;", count))) +
                   "</dict>");
    };
    EXPECT_EQ(plistText(entities(1000), "K"), "x");
    EXPECT_EQ(plistText(entities(1'000'000), "K"), std::nullopt);
}

TEST(PlistText, ABinaryListThatContainsItselfIsRefused)
{
    EXPECT_EQ(plistText(binaryList({"\xA1" + reference(0)}), "K"), std::nullopt);
    const std::string dict = "\xD2" + reference(1) + reference(3) + reference(2) + reference(0);
    EXPECT_EQ(plistText(binaryList({dict, keyK, textX, "\x51L"}), "K"), std::nullopt);
}

TEST(PlistText, ABinaryListThatDoublesAtEachLevelIsRefused)
{
    // 40 lists, each twice the next: 2 to the 40 values once written out, in 300 bytes.
    std::vector<std::string> values = {
        "\xD2" + reference(1) + reference(2) + reference(3) + reference(4), keyK, "\x51L", textX};
    for (std::uint64_t level = 4; level < 44; ++level) {
        values.push_back("\xA2" + reference(level + 1) + reference(level + 1));
    }
    values.emplace_back("\x09");
    EXPECT_EQ(plistText(binaryList(values), "K"), std::nullopt);
    values.resize(14);
    values.back() = "\x09";
    EXPECT_EQ(plistText(binaryList(values), "K"), "x") << "ten levels are no harm";
}

TEST(PlistText, ALargeValueThatManyReferToIsRefused)
{
    const std::string dict = "\xD2" + reference(1) + reference(2) + reference(3) + reference(4);
    const std::string large =
        std::string("\x4F\x12") + bigEndian(1'000'000, 4) + std::string(1'000'000, 'd');
    const auto referredTo = [&](int times) {
        return binaryList({dict, keyK, "\x51L", textX,
                           std::string("\xAF\x11") +
                               bigEndian(static_cast<std::uint64_t>(times), 2) +
                               repeated(reference(5), times),
                           large});
    };
    EXPECT_EQ(plistText(referredTo(2), "K"), "x");
    EXPECT_EQ(plistText(referredTo(2000), "K"), std::nullopt);
}

TEST(PlistText, ABinaryListOfManyLevelsIsRefused)
{
    const auto nested = [](std::uint64_t levels) {
        std::vector<std::string> values = {"\xD2" + reference(1) + reference(2) + reference(3) +
                                               reference(4),
                                           keyK, "\x51L", textX};
        for (std::uint64_t level = 1; level < levels; ++level) {
            values.push_back("\xA1" + reference(values.size() + 1));
        }
        values.emplace_back("\x09");
        return binaryList(values);
    };
    EXPECT_EQ(plistText(nested(64), "K"), "x");
    EXPECT_EQ(plistText(nested(65), "K"), std::nullopt);
    EXPECT_EQ(plistText(nested(60'000), "K"), std::nullopt);
}

TEST(PlistText, BinaryListsWhosePartsLieOutsideThemAreRefused)
{
    const std::string dict = dictHead + reference(1) + reference(2);
    const std::string good = binaryList({dict, keyK, textX});
    const std::string body = good.substr(0, good.size() - 32);
    const std::uint64_t table = body.size() - 12;
    ASSERT_EQ(plistText(body + trailer(3, 0, table), "K"), "x");
    constexpr std::uint64_t huge = ~std::uint64_t{0};
    for (const std::string& end :
         {trailer(3, 3, table), trailer(3, huge, table), trailer(4, 0, table),
          trailer(huge, 0, table), trailer(huge / 4 + 1, 0, table), trailer(3, 0, huge),
          trailer(3, 0, 0), trailer(3, 0, table + 1), trailer(3, 0, table, 0),
          trailer(3, 0, table, 9), trailer(3, 0, table, 4, 0), trailer(3, 0, table, 4, 127)}) {
        EXPECT_EQ(plistText(body + end, "K"), std::nullopt);
    }
    const std::string endless = std::string("\xDF\x13") + bigEndian(huge, 8);
    EXPECT_EQ(plistText(binaryList({endless, keyK, textX}), "K"), std::nullopt);
    const std::string longText = std::string("\x5F\x13") + bigEndian(huge / 2, 8);
    EXPECT_EQ(plistText(binaryList({dict, keyK, longText}), "K"), std::nullopt);
}

TEST(PlistText, MoreThanSixteenMebibytesAreNotLookedAt)
{
    const std::string list = xml("<dict>" + entry("K", text("x")) + "</dict>");
    constexpr std::size_t limit = std::size_t{16} << 20;
    const std::string blanks(limit - list.size(), ' ');
    EXPECT_EQ(plistText(list + blanks, "K"), "x");
    EXPECT_EQ(plistText(list + blanks + " ", "K"), std::nullopt);
}

} // namespace
} // namespace zolva
