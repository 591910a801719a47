#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;

const std::string nowhere = "/nonexistent-home";

std::string tallyOf(const std::string& path, int count, std::int64_t bytes)
{
    return json("{'path':'" + path + "','count':" + std::to_string(count) +
                ",'bytes':" + std::to_string(bytes) + "}");
}

TEST(TallyCommand, CountsFilesAndBytesOfEachPath)
{
    TempTree tree;
    const std::int64_t bytes =
        blocksOf(tree.file("d/one", 5000)) + blocksOf(tree.file("d/.in/two", 9000));
    tree.folder("empty");
    const Outcome outcome = zolvactl(
        nowhere, {"tally", tree.path("d"), tree.path("empty"), tree.path("gone"), "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'tallies':[") + tallyOf(tree.path("d"), 2, bytes) + "," +
                               tallyOf(tree.path("empty"), 1, 0) + "," +
                               tallyOf(tree.path("gone"), 0, 0) + "]}\n");
}

TEST(TallyCommand, ResolvesRelativePathsAgainstTheCurrentFolder)
{
    TempTree tree;
    const std::int64_t bytes = blocksOf(tree.file("d/one", 5000));
    tree.folder("elsewhere/deep");
    tree.link("way", tree.path("elsewhere/deep"));
    const Outcome outcome =
        ChildRun({"tally", "--json", "d", "./d//", ".", "way/../../d"}).in(tree.root()).run();
    EXPECT_EQ(outcome.out, json("{'tallies':[") + tallyOf(tree.path("d"), 1, bytes) + "," +
                               tallyOf(tree.path("d"), 1, bytes) + "," +
                               tallyOf(tree.root(), 1, bytes) + "," +
                               tallyOf(tree.path("d"), 1, bytes) + "]}\n");
}

TEST(TallyCommand, DoesNotFollowALink)
{
    TempTree tree;
    tree.file("d/one", 5000);
    const std::string link = tree.link("way", "d");
    const Outcome outcome = zolvactl(nowhere, {"tally", "--json", link, link + "/"});
    const std::string expected = tallyOf(link, 1, blocksOf(link));
    EXPECT_EQ(outcome.out, json("{'tallies':[") + expected + "," + expected + "]}\n");
}

TEST(TallyCommand, TakesTheEmptyPathForNothing)
{
    const Outcome outcome = zolvactl(nowhere, {"tally", "--json", ""});
    EXPECT_EQ(outcome.out, json("{'tallies':[{'path':'','count':0,'bytes':0}]}\n"));
}

TEST(TallyCommand, CountsATreeWhoseNameIsNotUtf8)
{
    TempTree tree;
    const std::int64_t bytes = blocksOf(tree.file("b\xff/one", 5000));
    const Outcome outcome = zolvactl(nowhere, {"tally", "--json", tree.path("b\xff")});
    EXPECT_EQ(outcome.out,
              json("{'tallies':[{'path':'" + tree.path("b\xef\xbf\xbd") + "','raw':'" +
                   tree.path("b%FF") + "','count':1,'bytes':" + std::to_string(bytes) + "}]}\n"));
}

TEST(TallyCommand, ShowsWhereNothingIs)
{
    TempTree tree;
    const Outcome outcome = zolvactl(nowhere, {"tally", tree.path("gone")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr(tree.path("gone") + " (nothing there)"));
}

TEST(SizeCommand, GivesTheTextOfEachNumberOfBytes)
{
    const Outcome outcome = zolvactl(nowhere, {"size", "0", "999", "1000", "1000000000", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'sizes':[{'bytes':0,'text':'0 bytes'},"
                                "{'bytes':999,'text':'999 bytes'},"
                                "{'bytes':1000,'text':'1 KB'},"
                                "{'bytes':1000000000,'text':'1.00 GB'}]}\n"));
}

TEST(SizeCommand, TakesNegativeNumbersInTheirPlace)
{
    const Outcome outcome = zolvactl(nowhere, {"--json", "size", "7", "-5", "--", "-6"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'sizes':[{'bytes':7,'text':'7 bytes'},"
                                "{'bytes':-5,'text':'-5 bytes'},"
                                "{'bytes':-6,'text':'-6 bytes'}]}\n"));
    EXPECT_EQ(zolvactl(nowhere, {"size", "-5", "999"}).out, "  BYTES  TEXT\n"
                                                            "     -5  -5 bytes\n"
                                                            "    999  999 bytes\n");
}

TEST(SizeCommand, ReachesBothEndsOfItsNumbers)
{
    const Outcome outcome =
        zolvactl(nowhere, {"size", "--json", "-9223372036854775808", "9223372036854775807"});
    EXPECT_EQ(outcome.out, json("{'sizes':[{'bytes':-9223372036854775808,"
                                "'text':'-9223372036854775808 bytes'},"
                                "{'bytes':9223372036854775807,'text':'9223372036.85 GB'}]}\n"));
}

TEST(SizeCommand, RefusesWhatIsNoIntegerOrOutOfRangeAndPrintsNothing)
{
    for (const char* wrong : {"9223372036854775808", "-9223372036854775809", "1x", "1.5", "x", " 5",
                              "", "+5", "0x10", "-5x"}) {
        const Outcome outcome = zolvactl(nowhere, {"size", "1", wrong, "--json"});
        EXPECT_EQ(outcome.code, 2) << wrong;
        EXPECT_EQ(outcome.out, "") << wrong;
        EXPECT_THAT(outcome.err, HasSubstr(std::string("\"") + wrong + "\"")) << wrong;
    }
}

} // namespace

} // namespace zolva::test
