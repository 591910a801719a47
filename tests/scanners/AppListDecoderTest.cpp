#include "scanners/AppInventory.h"

#include "files/DisplayPath.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zolva {
namespace {

using Fields = std::vector<std::pair<std::string, std::string>>;

/// Key and JSON value of one complete application.
Fields completeFields()
{
    return {{"name", R"("Foo")"},
            {"bundle_id", R"("org.example.foo")"},
            {"source", R"("Homebrew")"},
            {"uninstall_name", R"("foo")"},
            {"path", R"("/Applications/Foo.app")"},
            {"size", R"("1.2 GB")"}};
}

std::string object(const Fields& fields)
{
    std::string text;
    for (const auto& [key, value] : fields) {
        text += (text.empty() ? "{\"" : ",\"") + key + "\":" + value;
    }
    return text.empty() ? "{}" : text + "}";
}

std::string complete()
{
    return object(completeFields());
}

/// A complete application with one more key in front.
std::string withExtra(const std::string& value)
{
    Fields fields = completeFields();
    fields.insert(fields.begin(), {"extra", value});
    return object(fields);
}

std::string errorOf(std::string_view json)
{
    const auto apps = decodeAppList(json);
    return apps ? "accepted " + std::to_string(apps->size()) : apps.error();
}

std::string repeated(std::string_view text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

TEST(AppListDecoder, TakesTheSixTextsAsTheyStandAndLeavesTheRestAbsent)
{
    const auto apps = decodeAppList("[" + complete() + "]");
    ASSERT_TRUE(apps) << apps.error();
    ASSERT_EQ(apps->size(), 1U);
    const UninstallApp& app = apps->front();
    EXPECT_EQ(app.name, "Foo");
    EXPECT_EQ(app.bundleID, "org.example.foo");
    EXPECT_EQ(app.source, "Homebrew");
    EXPECT_EQ(app.uninstallName, "foo");
    EXPECT_EQ(app.path, "/Applications/Foo.app");
    EXPECT_EQ(app.size, "1.2 GB");
    EXPECT_EQ(app.version, std::nullopt);
    EXPECT_EQ(app.installedDate, std::nullopt);
    EXPECT_EQ(app.bundleBytes, std::nullopt);
}

TEST(AppListDecoder, AnIdIsTheBundleIdentifierAndThePathWithoutASeparator)
{
    const auto apps = decodeAppList("[" + complete() + "]");
    ASSERT_TRUE(apps);
    EXPECT_EQ(apps->front().id(), "org.example.foo/Applications/Foo.app");
}

TEST(AppListDecoder, AnEmptyListHasNoApplications)
{
    EXPECT_EQ(errorOf("[]"), "accepted 0");
    EXPECT_EQ(errorOf(" [ \n ] \t\n"), "accepted 0");
}

TEST(AppListDecoder, KeepsTheOrderOfALongList)
{
    std::string json = "[";
    for (int i = 0; i < 20'000; ++i) {
        Fields fields = completeFields();
        fields[0].second = "\"" + std::to_string(i) + "\"";
        json += (i == 0 ? "" : ",") + object(fields);
    }
    const auto apps = decodeAppList(json + "]");
    ASSERT_TRUE(apps) << apps.error();
    ASSERT_EQ(apps->size(), 20'000U);
    for (std::size_t i = 0; i < apps->size(); ++i) {
        ASSERT_EQ((*apps)[i].name, std::to_string(i));
    }
}

TEST(AppListDecoder, ExtraKeysOfAnyKindAreIgnored)
{
    for (const char* value : {"null", "true", "-1.5e3", "\"x\"", "[1,[2,{\"name\":3}]]",
                              R"({"name":1,"deeper":{"path":[]}})"}) {
        EXPECT_EQ(errorOf("[" + withExtra(value) + "]"), "accepted 1") << value;
    }
}

TEST(AppListDecoder, AKeyOfANestedObjectIsNotAKeyOfTheApplication)
{
    Fields fields = completeFields();
    fields[0] = {"extra", R"({"name":"inner"})"};
    EXPECT_EQ(errorOf("[" + object(fields) + "]"), "[0].name: missing");
    fields.push_back({"name", R"("outer")"});
    fields.push_back({"late", R"({"name":"inner"})"});
    const auto apps = decodeAppList("[" + object(fields) + "]");
    ASSERT_TRUE(apps) << apps.error();
    EXPECT_EQ(apps->front().name, "outer");
}

TEST(AppListDecoder, KeysAreCaseSensitiveAndWhole)
{
    Fields fields = completeFields();
    fields[1].first = "Bundle_ID";
    EXPECT_EQ(errorOf("[" + object(fields) + "]"), "[0].bundle_id: missing");
    fields[1].first = "bundle_id ";
    EXPECT_EQ(errorOf("[" + object(fields) + "]"), "[0].bundle_id: missing");
}

TEST(AppListDecoder, EachMissingKeyIsNamedWithItsPlace)
{
    for (std::size_t missing = 0; missing < 6; ++missing) {
        Fields fields = completeFields();
        const std::string key = fields[missing].first;
        fields.erase(fields.begin() + static_cast<std::ptrdiff_t>(missing));
        EXPECT_EQ(errorOf("[" + object(fields) + "]"), "[0]." + key + ": missing");
        EXPECT_EQ(errorOf("[" + complete() + "," + complete() + "," + complete() + "," +
                          object(fields) + "]"),
                  "[3]." + key + ": missing");
    }
    EXPECT_EQ(errorOf("[{}]"), "[0].name: missing");
}

TEST(AppListDecoder, TheKeysOfOneApplicationDoNotServeTheNext)
{
    EXPECT_EQ(errorOf("[" + complete() + ",{}]"), "[1].name: missing");
}

TEST(AppListDecoder, EachKeyRefusesWhatIsNoText)
{
    const std::vector<std::pair<std::string, std::string>> values = {
        {"null", "null"},  {"true", "true or false"}, {"7", "number"}, {"-7", "number"},
        {"1.9", "number"}, {"1e2", "number"},         {"[]", "list"},  {"[\"a\"]", "list"},
        {"{}", "object"},  {"false", "true or false"}};
    for (std::size_t wrong = 0; wrong < 6; ++wrong) {
        for (const auto& [value, found] : values) {
            Fields fields = completeFields();
            fields[wrong].second = value;
            EXPECT_EQ(errorOf("[" + complete() + "," + object(fields) + "]"),
                      "[1]." + fields[wrong].first + ": expected text, found " + found);
        }
    }
}

TEST(AppListDecoder, OfAKeyThatStandsTwiceTheLastWins)
{
    Fields fields = completeFields();
    fields.push_back({"name", R"("Bar")"});
    const auto apps = decodeAppList("[" + object(fields) + "]");
    ASSERT_TRUE(apps) << apps.error();
    EXPECT_EQ(apps->front().name, "Bar");
}

TEST(AppListDecoder, WhatIsNoListAtTheTopIsRefused)
{
    EXPECT_EQ(errorOf(complete()), "expected list, found object");
    EXPECT_EQ(errorOf("\"text\""), "expected list, found text");
    EXPECT_EQ(errorOf("12"), "expected list, found number");
    EXPECT_EQ(errorOf("1.5"), "expected list, found number");
    EXPECT_EQ(errorOf("null"), "expected list, found null");
    EXPECT_EQ(errorOf("true"), "expected list, found true or false");
}

TEST(AppListDecoder, WhatIsNoObjectInTheListIsRefusedWithItsPlace)
{
    EXPECT_EQ(errorOf("[" + complete() + ",[]]"), "[1]: expected object, found list");
    EXPECT_EQ(errorOf("[null]"), "[0]: expected object, found null");
    EXPECT_EQ(errorOf("[\"Foo\"]"), "[0]: expected object, found text");
    EXPECT_EQ(errorOf("[3]"), "[0]: expected object, found number");
}

TEST(AppListDecoder, SixtyFourLevelsAreReadAndOneMoreIsRefused)
{
    // The list and the object are two of them.
    const std::string deepest = repeated("[", 62) + repeated("]", 62);
    EXPECT_EQ(errorOf("[" + withExtra(deepest) + "]"), "accepted 1");
    EXPECT_EQ(errorOf("[" + complete() + "," + withExtra("[" + deepest + "]") + "]"),
              "[1]: more than 64 levels deep");
    const std::string objects = repeated("{\"a\":", 63) + "1" + repeated("}", 63);
    EXPECT_EQ(errorOf("[" + withExtra(objects) + "]"), "[0]: more than 64 levels deep");
}

TEST(AppListDecoder, AHundredThousandLevelsEndInAnErrorAndNotTheProgram)
{
    constexpr int many = 100'000;
    EXPECT_EQ(errorOf(repeated("[", many)), "[0]: expected object, found list");
    EXPECT_EQ(errorOf("[" + withExtra(repeated("[", many) + repeated("]", many)) + "]"),
              "[0]: more than 64 levels deep");
    EXPECT_EQ(errorOf("[" + withExtra(repeated("{\"a\":", many))), "[0]: more than 64 levels deep");
}

TEST(AppListDecoder, NothingAndWhiteSpaceAreNoJson)
{
    EXPECT_EQ(errorOf(""), "not JSON at byte 1: unexpected end of input");
    EXPECT_EQ(errorOf(" \n "), "not JSON at byte 4: unexpected end of input");
    EXPECT_EQ(errorOf({}), "not JSON at byte 1: unexpected end of input");
}

TEST(AppListDecoder, AListCutOffAnywhereIsRefused)
{
    const std::string whole = "[" + complete() + "," + withExtra("[true,1.5,{}]") + "]";
    ASSERT_EQ(errorOf(whole), "accepted 2");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(decodeAppList(std::string_view(whole).substr(0, length))) << length;
    }
}

TEST(AppListDecoder, WhatFollowsTheListIsRefused)
{
    const std::string list = "[" + complete() + "]";
    for (const std::string tail : {"x", ",", "]", "[]", "\n[]"}) {
        EXPECT_TRUE(errorOf(list + tail).starts_with("not JSON at byte ")) << tail;
    }
    EXPECT_EQ(errorOf(list + std::string("\0[]", 3)),
              "not JSON at byte " + std::to_string(list.size() + 1) + ": NUL");
}

TEST(AppListDecoder, WhatOnlyLooksLikeJsonIsRefused)
{
    const std::string app = complete();
    for (const std::string& json :
         {"[" + app + ",]", "[" + app + " " + app + "]", "[" + app + "//\n]",
          "[" + withExtra("NaN") + "]", "[" + withExtra("'x'") + "]", "[" + withExtra("01") + "]",
          "[" + withExtra("+1") + "]", std::string("[{name:\"x\"}]"), app + "\n" + app}) {
        EXPECT_FALSE(decodeAppList(json)) << json;
    }
}

TEST(AppListDecoder, ANumberThatFitsNowhereIsRefusedByItsPlace)
{
    EXPECT_TRUE(errorOf("[" + withExtra("1e999") + "]").ends_with(": number out of range"));
}

TEST(AppListDecoder, ABareNulIsRefusedAndAnEscapedOneIsKept)
{
    Fields fields = completeFields();
    fields[0].second = std::string("\"a\0b\"", 5);
    EXPECT_TRUE(errorOf("[" + object(fields) + "]").starts_with("not JSON at byte "));
    EXPECT_FALSE(decodeAppList(std::string_view("\0", 1)));

    fields[0].second = R"("a\u0000b")";
    const auto apps = decodeAppList("[" + object(fields) + "]");
    ASSERT_TRUE(apps) << apps.error();
    EXPECT_EQ(apps->front().name, std::string("a\0b", 3));
}

TEST(AppListDecoder, TextThatIsNotUtf8IsRefusedInWordsThatAre)
{
    for (const std::string bad : {"\xFF", "\xC0\xAF", "\xED\xA0\x80", "\xE2\x82", "\xF5\x80\x80"}) {
        Fields fields = completeFields();
        fields[0].second = "\"" + bad + "\"";
        const std::string error = errorOf("[" + object(fields) + "]");
        EXPECT_NE(error.find("ill-formed UTF-8"), std::string::npos) << error;
        EXPECT_EQ(displayText(error), error);
    }
}

TEST(AppListDecoder, EscapesBecomeUtf8AndALoneSurrogateIsRefused)
{
    Fields fields = completeFields();
    fields[0].second = R"("Caf\u00e9 \ud83d\ude00")";
    const auto apps = decodeAppList("[" + object(fields) + "]");
    ASSERT_TRUE(apps) << apps.error();
    EXPECT_EQ(apps->front().name, "Café \xF0\x9F\x98\x80");
    fields[0].second = R"("\ud83d")";
    EXPECT_TRUE(errorOf("[" + object(fields) + "]").starts_with("not JSON at byte "));
}

TEST(AppListDecoder, AByteOrderMarkIsPassedOverAndOtherEncodingsAreRefused)
{
    EXPECT_EQ(errorOf("\xEF\xBB\xBF[" + complete() + "]"), "accepted 1");
    EXPECT_FALSE(decodeAppList(std::string_view("\xFF\xFE[\0]\0", 6)));
    EXPECT_FALSE(decodeAppList(std::string_view("\0[\0]", 4)));
}

TEST(AppListDecoder, AnErrorStaysShortHoweverLongTheBadTextIs)
{
    const std::string error = errorOf("[" + withExtra("\"" + repeated("x", 100'000)));
    EXPECT_TRUE(error.starts_with("not JSON at byte ")) << error;
    EXPECT_LT(error.size(), 120U);
}

} // namespace
} // namespace zolva
