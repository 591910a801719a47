#pragma once

#include "removal/runs/RunTools.h"

#include "support/RecordedLog.h"
#include "support/RecordingTrash.h"
#include "support/TempTree.h"
#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"

#include <memory>
#include <string>
#include <vector>

namespace zolva::test {

/// Everything a run works with, on a disk in memory and on time that stands.
struct RunBench
{
    TempTree tree; ///< for the journal
    ManualClock clock;
    RecordedLog log;
    ToastList toasts{clock};
    int spaceReads = 0;
    FreeSpaceMeter space{clock, [this] {
                             ++spaceReads;
                             return VolumeSpace{100, 200};
                         }};
    std::shared_ptr<RecordingTrash> disk = std::make_shared<RecordingTrash>();
    TrashMeter trash{clock, toasts, space, disk};
    bool keepInTrash = true;
    std::vector<std::string> whitelist;
    int trashOpened = 0;
    RunState state; ///< goes first

    [[nodiscard]] RunTools tools()
    {
        return {&state,
                disk,
                clock,
                toasts,
                trash,
                space,
                {[this] { return keepInTrash; }, [this] { return whitelist; }},
                journalFolder(),
                [this] { ++trashOpened; }};
    }

    [[nodiscard]] std::string journalFolder() const { return tree.path("Logs"); }

    /// "kind: text" of each toast that stands, with " [action]" where it has one.
    [[nodiscard]] std::vector<std::string> toastTexts() const
    {
        std::vector<std::string> texts;
        for (const Toast& toast : toasts.toasts()) {
            const char* kind = toast.kind == BannerKind::Info      ? "info: "
                               : toast.kind == BannerKind::Warning ? "warning: "
                                                                   : "success: ";
            texts.push_back(
                kind + toast.text.toStdString() +
                (toast.actionTitle ? " [" + toast.actionTitle->toStdString() + "]" : ""));
        }
        return texts;
    }

    void settleMeasure()
    {
        pumpUntil([this] { return !trash.isMeasuring(); });
    }
};

using Texts = std::vector<std::string>;

} // namespace zolva::test
