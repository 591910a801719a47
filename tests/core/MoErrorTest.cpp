#include "core/MoError.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace zolva::test {

namespace {

const MoError notFound{MoError::BinaryNotFound{"/opt/homebrew/bin/mo"}};
const MoError undecoded{MoError::DecodingFailure{"\"procs\" is missing"}};
const MoError cancelled{MoError::Cancelled{}};

MoError exited(int status, const std::string& errors)
{
    return {MoError::NonZeroExit{status, errors}};
}

} // namespace

TEST(MoError, EachDescriptionIsWordForWord)
{
    EXPECT_EQ(notFound.description(),
              "Mole binary not found at /opt/homebrew/bin/mo. Install with: brew install mole");
    EXPECT_EQ(exited(3, "").description(), "mo exited with code 3");
    EXPECT_EQ(exited(3, " no disk \n").description(), "mo exited with code 3\n\nno disk");
    EXPECT_EQ(undecoded.description(), "Failed to parse mo output: \"procs\" is missing");
    EXPECT_EQ(cancelled.description(), "Operation cancelled.");
}

TEST(MoError, WhiteSpaceAloneLeavesTwoLineFeedsAndNothingBehindThem)
{
    EXPECT_EQ(exited(15, " \n\t").description(), "mo exited with code 15\n\n");
}

TEST(MoError, EachRecoverySuggestionIsWordForWord)
{
    EXPECT_EQ(notFound.recoverySuggestion(), "Run: brew install mole");
    EXPECT_EQ(exited(1, "x").recoverySuggestion(),
              "Check that mo is working by running it in a terminal.");
    EXPECT_EQ(undecoded.recoverySuggestion(), "This may be a version mismatch. Run: mo update");
    EXPECT_EQ(cancelled.recoverySuggestion(), std::nullopt);
}

TEST(MoError, TheUserIsToldInOtherWords)
{
    EXPECT_EQ(userText(notFound), "mo isn’t installed");
    EXPECT_EQ(userText(exited(1, "\n no disk \n")), "no disk");
    EXPECT_EQ(userText(exited(1, "")), "mo exited with an error");
    EXPECT_EQ(userText(exited(1, " \n\t ")), "mo exited with an error");
    EXPECT_EQ(userText(undecoded), "Couldn’t read mo output (\"procs\" is missing)");
    EXPECT_EQ(userText(cancelled), "Cancelled");
    EXPECT_EQ(userText(SystemError{"out of processes"}), "out of processes");
}

TEST(MoError, AnErrorOfTheSystemIsDescribedInItsOwnWords)
{
    EXPECT_EQ(description(SystemError{"out of processes"}), "out of processes");
    EXPECT_EQ(description(cancelled), "Operation cancelled.");
}

} // namespace zolva::test
