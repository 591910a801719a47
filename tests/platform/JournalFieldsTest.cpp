#include "platform/linux/JournalFields.h"

#include <gtest/gtest.h>

namespace zolva {
namespace {

using Fields = std::vector<std::string>;

TEST(JournalFields, CarryThePriorityOfTheLevelAndTheCategory)
{
    EXPECT_EQ(journalFields("remove", SystemLogLevel::Error, "a\nb=c"),
              (Fields{"MESSAGE=a\nb=c", "PRIORITY=3", "SYSLOG_IDENTIFIER=zolva",
                      "ZOLVA_CATEGORY=remove"}));
    EXPECT_EQ(journalFields("app", SystemLogLevel::Default, "m")[1], "PRIORITY=5");
    EXPECT_EQ(journalFields("app", SystemLogLevel::Debug, "m")[1], "PRIORITY=7");
    EXPECT_EQ(journalFields("app", SystemLogLevel::Fault, "m")[1], "PRIORITY=2");
}

} // namespace
} // namespace zolva
