#include "removal/Toasts.h"

#include "support/qt/ManualClock.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <memory>

namespace zolva {
namespace {

using namespace std::chrono_literals;

class Toasts : public ::testing::Test
{
protected:
    [[nodiscard]] std::vector<QString> texts() const
    {
        std::vector<QString> all;
        for (const Toast& toast : m_list.toasts()) {
            all.push_back(toast.text);
        }
        return all;
    }

    test::ManualClock m_clock;
    ToastList m_list{m_clock};
    QAbstractItemModelTester m_tester{&m_list,
                                      QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(Toasts, EachLivesTenSecondsWhateverItsKindAndWithAnActionToo)
{
    m_list.addToast(BannerKind::Info, "i");
    m_list.addToast(BannerKind::Warning, "w");
    m_list.addToast(BannerKind::Success, "s", "Undo", [] {});
    m_clock.advance(9999ms);
    EXPECT_EQ(m_list.toasts().size(), 3u);
    m_clock.advance(1ms);
    EXPECT_TRUE(m_list.toasts().empty());
}

TEST_F(Toasts, EachHasItsOwnTime)
{
    m_list.addToast(BannerKind::Info, "first");
    m_clock.advance(4s);
    m_list.addToast(BannerKind::Info, "second");
    m_clock.advance(6s);
    EXPECT_EQ(texts(), (std::vector<QString>{"second"}));
    m_clock.advance(4s);
    EXPECT_TRUE(m_list.toasts().empty());
}

TEST_F(Toasts, StandOldestFirstWithoutLimitAndEqualOnesAreNotMerged)
{
    for (int i = 0; i < 50; ++i) {
        m_list.addToast(BannerKind::Info, "same");
    }
    m_list.addToast(BannerKind::Info, "last");
    ASSERT_EQ(m_list.toasts().size(), 51u);
    EXPECT_EQ(m_list.toasts().front().text, "same");
    EXPECT_EQ(m_list.toasts().back().text, "last");
    EXPECT_NE(m_list.toasts()[0].id, m_list.toasts()[1].id);
}

TEST_F(Toasts, DismissedAtNinePointNineSecondsTheLaterRemovalFindsNothing)
{
    const QUuid id = m_list.addToast(BannerKind::Info, "gone");
    m_clock.advance(5s);
    m_list.addToast(BannerKind::Info, "stays");
    m_clock.advance(4900ms);
    m_list.dismissToast(id);
    EXPECT_EQ(texts(), (std::vector<QString>{"stays"}));
    int removals = 0;
    QObject::connect(&m_list, &QAbstractItemModel::rowsRemoved, &m_list, [&] { ++removals; });
    m_clock.advance(100ms);
    EXPECT_EQ(texts(), (std::vector<QString>{"stays"}));
    EXPECT_EQ(removals, 0);
}

TEST_F(Toasts, DismissingWhatIsNotThereDoesNothing)
{
    m_list.addToast(BannerKind::Info, "stays");
    m_list.dismissToast(QUuid::createUuid());
    EXPECT_EQ(m_list.toasts().size(), 1u);
}

TEST_F(Toasts, TheButtonRunsTheActionAndTheToastStays)
{
    int pressed = 0;
    const QUuid id = m_list.addToast(BannerKind::Success, "t", "Undo", [&] { ++pressed; });
    m_list.runAction(id);
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(m_list.toasts().size(), 1u);
    m_list.dismissToast(id);
    m_list.runAction(id);
    EXPECT_EQ(pressed, 1);
}

TEST_F(Toasts, AnActionMayDismissItsOwnToastAndRaiseOthers)
{
    QUuid id;
    id = m_list.addToast(BannerKind::Success, "t", "Undo", [&] {
        m_list.dismissToast(id);
        m_list.addToast(BannerKind::Info, "undone");
    });
    m_list.runAction(id);
    EXPECT_EQ(texts(), (std::vector<QString>{"undone"}));
}

TEST_F(Toasts, OneWithoutAnActionHasNoButtonToPress)
{
    const QUuid id = m_list.addToast(BannerKind::Info, "t");
    EXPECT_FALSE(m_list.toasts().front().actionTitle);
    m_list.runAction(id);
    EXPECT_EQ(m_list.toasts().size(), 1u);
}

TEST_F(Toasts, TheRowsTellWhatTheToastsAre)
{
    const QUuid id = m_list.addToast(BannerKind::Warning, "text", "Show log", [] {});
    m_list.addToast(BannerKind::Success, "other");
    const QModelIndex row = m_list.index(0);
    EXPECT_EQ(row.data(ToastList::IdRole).toUuid(), id);
    EXPECT_EQ(row.data(ToastList::KindRole), "warning");
    EXPECT_EQ(row.data(ToastList::TextRole), "text");
    EXPECT_EQ(row.data(ToastList::ActionTitleRole), "Show log");
    EXPECT_EQ(m_list.index(1).data(ToastList::KindRole), "success");
    EXPECT_EQ(m_list.index(1).data(ToastList::ActionTitleRole), "");
    EXPECT_EQ(m_list.roleNames().value(ToastList::ActionTitleRole), "actionTitle");
}

TEST(ToastsLifetime, AToastThatOutlivesItsListHarmsNothing)
{
    test::ManualClock clock;
    auto list = std::make_unique<ToastList>(clock);
    list->addToast(BannerKind::Info, "t");
    list.reset();
    clock.advance(10s);
    EXPECT_EQ(clock.sleepers(), 0u);
}

} // namespace
} // namespace zolva
