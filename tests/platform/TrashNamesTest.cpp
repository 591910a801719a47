#include "platform/linux/TrashNames.h"
#include "platform/NumberedName.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace zolva;

TEST(NumberedName, TheNumberStandsBeforeTheExtension)
{
    EXPECT_EQ(numberedName("Foo.app", 2), "Foo 2.app");
    EXPECT_EQ(numberedName("Foo.app", 3), "Foo 3.app");
    EXPECT_EQ(numberedName("a.tar.gz", 2), "a.tar 2.gz");
}

TEST(NumberedName, ANameWithoutExtensionGetsNoTrailingDot)
{
    EXPECT_EQ(numberedName("Name", 2), "Name 2");
    EXPECT_EQ(numberedName(".bashrc", 2), ".bashrc 2");
    EXPECT_EQ(numberedName("..x", 2), "..x 2");
    EXPECT_EQ(numberedName("end.", 2), "end. 2");
}

TEST(TrashNames, TheFirstTryIsTheNameItself)
{
    EXPECT_EQ(trashName("report.pdf", 0, 255), "report.pdf");
    EXPECT_EQ(trashName("report.pdf", 1, 255), "report 2.pdf");
    EXPECT_EQ(trashName("report.pdf", 99, 255), "report 100.pdf");
}

TEST(TrashNames, AfterTheCountersEveryTryIsAnother)
{
    std::set<std::string> names;
    for (int attempt = 0; attempt < mostTrashNames; ++attempt) {
        names.insert(trashName("a.b", attempt, 255));
    }
    EXPECT_EQ(names.size(), std::size_t{mostTrashNames});
}

TEST(TrashNames, TheInfoFileAlwaysFits)
{
    const std::string longName(255, 'n');
    const std::string longExtension = "a." + std::string(253, 'e');
    for (const std::string& name : {longName, longExtension, std::string(250, 'n') + ".tgz"}) {
        for (const int attempt : {0, 1, 99, 150}) {
            EXPECT_LE(trashName(name, attempt, 255).size() + trashInfoSuffix.size(), 255U);
            EXPECT_LE(trashName(name, attempt, 143).size() + trashInfoSuffix.size(), 143U);
        }
    }
    EXPECT_TRUE(trashName(std::string(250, 'n') + ".tgz", 1, 255).ends_with(" 2.tgz"));
}

TEST(TrashNames, NoLetterIsCutInHalf)
{
    for (std::size_t lead = 0; lead < 4; ++lead) {
        std::string name(lead, 'x');
        while (name.size() + 4 <= 255) {
            name += "\xF0\x9F\x98\x80";
        }
        const std::string cut = trashName(name, 0, 255);
        EXPECT_EQ((cut.size() - lead) % 4, 0U);
        EXPECT_GT(cut.size(), 240U);
    }
    EXPECT_EQ(trashName(std::string(255, '\x80'), 0, 255).size(), 245U);
}

} // namespace
