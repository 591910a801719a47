#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;

const std::string nowhere = "/nonexistent-home";

TEST(CheckCommand, TellsTheRefusalOrNullForEachPathInOrder)
{
    const Outcome outcome =
        zolvactl(nowhere, {"check", nowhere + "/Library/Caches/thing", "relative", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'checks':[{'path':'/nonexistent-home/Library/Caches/thing',"
                                "'refusal':null},"
                                "{'path':'relative','refusal':'not an absolute path'}]}\n"));
    EXPECT_EQ(outcome.err, "");
}

TEST(CheckCommand, TakesThePathAsTypedAndNotAgainstTheCurrentFolder)
{
    const TempTree tree;
    const Outcome outcome =
        ChildRun({"check", "--json", "./x/../y"}).home(tree.root()).in(tree.root()).run();
    EXPECT_EQ(outcome.out,
              json("{'checks':[{'path':'./x/../y','refusal':'not an absolute path'}]}\n"));
}

TEST(CheckCommand, GivesTheRawFormOnlyOfAPathThatIsNotUtf8)
{
    const Outcome outcome = zolvactl(nowhere, {"check", "--json", "a\xff%b", "a%b", "caf\xc3\xa9"});
    EXPECT_EQ(outcome.out,
              json("{'checks':["
                   "{'path':'a\xef\xbf\xbd%b','raw':'a%FF%25b','refusal':'not an absolute path'},"
                   "{'path':'a%b','refusal':'not an absolute path'},"
                   "{'path':'caf\xc3\xa9','refusal':'not an absolute path'}]}\n"));
}

TEST(CheckCommand, LeavesBracketsBracesAndPercentSignsInPathsAlone)
{
    const Outcome outcome = zolvactl(nowhere, {"check", "--json", "[a,b]", "{}", "%%", "@0", ""});
    EXPECT_EQ(outcome.out, json("{'checks':["
                                "{'path':'[a,b]','refusal':'not an absolute path'},"
                                "{'path':'{}','refusal':'not an absolute path'},"
                                "{'path':'%%','refusal':'not an absolute path'},"
                                "{'path':'@0','refusal':'not an absolute path'},"
                                "{'path':'','refusal':'empty path'}]}\n"));
}

TEST(CheckCommand, TakesAPathThatBeginsWithADashAfterTheMark)
{
    const Outcome outcome = zolvactl(nowhere, {"check", "--json", "a", "--", "-x", "--json", "--"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'checks':["
                                "{'path':'a','refusal':'not an absolute path'},"
                                "{'path':'-x','refusal':'not an absolute path'},"
                                "{'path':'--json','refusal':'not an absolute path'},"
                                "{'path':'--','refusal':'not an absolute path'}]}\n"));
}

TEST(CheckCommand, TakesTheNameOfACommandForAPath)
{
    const Outcome outcome = zolvactl(nowhere, {"check", "clean", "--json"});
    EXPECT_EQ(outcome.out,
              json("{'checks':[{'path':'clean','refusal':'not an absolute path'}]}\n"));
}

TEST(CheckCommand, ShowsATableWithTheVerdictOfEach)
{
    const Outcome outcome = zolvactl(nowhere, {"check", nowhere + "/Library/Caches/thing", "r"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "  PATH                                    VERDICT\n"
                           "  /nonexistent-home/Library/Caches/thing  may be touched\n"
                           "  r                                       not an absolute path\n");
}

TEST(ExcludedCommand, TellsForEachPathWhetherTheListCoversIt)
{
    const Outcome outcome =
        zolvactl(nowhere, {"excluded", "/a/b", "/c", "--json", "--list", "/a", "[x]"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'checks':[{'path':'/a/b','excluded':true},"
                                "{'path':'/c','excluded':false}]}\n"));
}

TEST(ExcludedCommand, KnowsNoEntriesWhereNoneAreStoredOrGiven)
{
    const std::string expected = json("{'checks':[{'path':'/a','excluded':false}]}\n");
    EXPECT_EQ(zolvactl(nowhere, {"excluded", "--json", "/a"}).out, expected);
    EXPECT_EQ(zolvactl(nowhere, {"excluded", "--json", "/a", "--list"}).out, expected);
}

TEST(ExcludedCommand, TakesTheStoredListUnlessOneIsGiven)
{
    TempTree tree;
    tree.text(".config/zolva/preferences.json", json("{'zolva.whitelist':['/a']}"));
    const std::string covered = json("{'checks':[{'path':'/a/b','excluded':true}]}\n");
    const std::string open = json("{'checks':[{'path':'/a/b','excluded':false}]}\n");
    EXPECT_EQ(zolvactl(tree.root(), {"excluded", "--json", "/a/b"}).out, covered);
    EXPECT_EQ(zolvactl(tree.root(), {"excluded", "--json", "/a/b", "--list"}).out, open);
    EXPECT_EQ(zolvactl(tree.root(), {"excluded", "--json", "/a/b", "--list", "/c"}).out, open);
}

TEST(ExcludedCommand, EndsTheListAtTheMarkAndTheNextOption)
{
    const std::string expected = json("{'checks':[{'path':'/a/b','excluded':true}]}\n");
    EXPECT_EQ(zolvactl(nowhere, {"--json", "excluded", "--list", "/a", "--", "/a/b"}).out,
              expected);
    EXPECT_EQ(zolvactl(nowhere, {"excluded", "--list", "/a", "--json", "/a/b"}).out, expected);
    EXPECT_EQ(zolvactl(nowhere, {"excluded", "/a/b", "--list=/x", "--list=/a", "--json"}).out,
              expected);
}

TEST(ExcludedCommand, ShowsYesOrNo)
{
    const Outcome outcome = zolvactl(nowhere, {"excluded", "/a/b", "/cc", "--list", "/a"});
    EXPECT_EQ(outcome.out, "  PATH  EXCLUDED\n"
                           "  /a/b  yes\n"
                           "  /cc   no\n");
}

TEST(ValidateExclusionCommand, GivesWhatWouldBeStoredAndNoMessage)
{
    const Outcome outcome =
        zolvactl(nowhere, {"validate-exclusion", " " + nowhere + "//keep/ ", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'message':null,'stored':'~/keep'}\n"));
}

TEST(ValidateExclusionCommand, GivesTheMessageAndNothingStored)
{
    const Outcome outcome = zolvactl(nowhere, {"validate-exclusion", "", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'message':'Enter a path.','stored':null}\n"));
}

TEST(ValidateExclusionCommand, LooksAtTheListThatIsGiven)
{
    const Outcome without = zolvactl(nowhere, {"validate-exclusion", "~/keep"});
    EXPECT_EQ(without.out, "Would be stored as ~/keep\n");
    const Outcome with = zolvactl(nowhere, {"validate-exclusion", "~/keep", "--list", "~/keep"});
    EXPECT_EQ(with.code, 0);
    EXPECT_THAT(with.out, Not(HasSubstr("stored")));
}

TEST(ValidateExclusionCommand, LooksAtTheStoredListWithoutAnother)
{
    TempTree tree;
    tree.text(".config/zolva/preferences.json", json("{'zolva.whitelist':['~/keep']}"));
    const Outcome outcome = zolvactl(tree.root(), {"validate-exclusion", "~/keep/x", "--json"});
    EXPECT_EQ(outcome.out, json("{'message':'Already covered by an existing exclusion.',"
                                "'stored':null}\n"));
}

TEST(ValidateExclusionCommand, GivesTheRawFormOfAnEntryThatIsNotUtf8)
{
    const Outcome outcome = zolvactl(nowhere, {"validate-exclusion", "~/k\xfe", "--json"});
    EXPECT_EQ(outcome.out, json("{'message':null,'stored':'~/k\xef\xbf\xbd','raw':'~/k%FE'}\n"));
}

} // namespace

} // namespace zolva::test
