#include "platform/AdminMove.h"

#include <gtest/gtest.h>

namespace {

using namespace zolva;

TEST(RunTool, TheStatusIsTheProgramsOwn)
{
    EXPECT_EQ(runTool({"/bin/sh", "-c", "exit 0"}), 0);
    EXPECT_EQ(runTool({"/bin/sh", "-c", "exit 126"}), 126);
    EXPECT_EQ(runTool({"/bin/sh", "-c", "kill -TERM $$"}), 128 + 15);
}

TEST(RunTool, WhatCannotBeStartedIsMinusOne)
{
    EXPECT_EQ(runTool({"/nowhere/tool"}), -1);
    EXPECT_EQ(runTool({"sh", "-c", "exit 0"}), -1);
    EXPECT_EQ(runTool({"/bin/sh", std::string("a\0b", 3)}), -1);
    EXPECT_EQ(runTool({}), -1);
}

TEST(RunTool, NoShellReadsTheArguments)
{
    EXPECT_EQ(runTool({"/usr/bin/test", "$HOME \"'; exit 3", "=", "$HOME \"'; exit 3"}), 0);
}

TEST(RunTool, TheCommandNamesProgramsByTheirWholePath)
{
    const auto command = adminMoveCommand("/a b", "/c'd");
    EXPECT_TRUE(command.front().starts_with('/'));
    EXPECT_EQ(command[command.size() - 2], "/a b");
    EXPECT_EQ(command.back(), "/c'd");
}

} // namespace
