#pragma once

#include "async/Unawaited.h"
#include "core/LiveData.h"
#include "core/ScriptedRunner.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zolva::test {

/// A live data store over a scripted runner and held scans.
class LiveModel : public ::testing::Test
{
protected:
    static UninstallApp app(const std::string& name)
    {
        UninstallApp one;
        one.name = name;
        one.bundleID = "org." + name;
        one.path = "/Applications/" + name + ".app";
        return one;
    }
    static std::string id(const std::string& name) { return app(name).id(); }

    RunnerScript script;
    HeldScans held;
    std::unique_ptr<LiveData> live =
        std::make_unique<LiveData>(std::make_unique<ScriptedRunner>(script), held.scans(),
                                   MoLocation{"/nowhere/mole", MoLocation::Kind::Shipped});
};

} // namespace zolva::test
