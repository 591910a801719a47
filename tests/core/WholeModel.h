#pragma once

#include "core/ModelWorld.h"

#include "support/RecordedLog.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

namespace zolva::test {

/// How often a signal came.
class Told
{
public:
    template <typename Sender, typename Signal>
    Told(Sender* sender, Signal signal)
    {
        QObject::connect(sender, signal, &m_context, [this] { ++m_count; });
    }

    [[nodiscard]] int count() const { return m_count; }

private:
    int m_count = 0;
    QObject m_context;
};

/// A home folder that goes last.
struct HomeOfATest
{
    TempTree tree;
    ScopedHome home{tree.root()};
};

/// The whole model over fakes, in a home folder of its own.
class WholeModel : public ::testing::Test, protected HomeOfATest, protected ModelWorld
{
protected:
    WholeModel() : ModelWorld(tree.path("logs")) {}

    /// Built, with nothing to tell at the first start.
    AppModel& ready()
    {
        store.values["zolva.seenAccessIntro"] = true;
        return start();
    }
    static CatPath path(const std::string& where, std::int64_t bytes, bool prot = false)
    {
        CatPath one;
        one.p = where;
        one.b = bytes;
        one.prot = prot;
        return one;
    }
    static Category cache(const std::string& id, std::vector<CatPath> all)
    {
        Category one = category(id);
        one.paths = std::move(all);
        return one;
    }
    static Project built(const std::string& where, std::int64_t bytes)
    {
        Project one = project(where);
        one.b = bytes;
        return one;
    }
    static InstallerItem image(const std::string& where, std::int64_t bytes)
    {
        InstallerItem one = installer(where);
        one.b = bytes;
        return one;
    }

    RecordedLog log;
    ScopedLogSink logSteps{
        [this](const LogRecord& record) { steps.push_back("logged " + record.message); }};
};

} // namespace zolva::test
