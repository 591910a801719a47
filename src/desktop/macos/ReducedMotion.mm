#include "desktop/ReducedMotion.h"

#import <AppKit/AppKit.h>

namespace zolva {

namespace {

class MacReducedMotion final : public ReducedMotion
{
public:
    MacReducedMotion()
    {
        m_observer = [NSWorkspace.sharedWorkspace.notificationCenter
            addObserverForName:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
                        object:nil
                         queue:NSOperationQueue.mainQueue
                    usingBlock:^(NSNotification*) {
                      Q_EMIT changed();
                    }];
    }
    ~MacReducedMotion() override
    {
        [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:m_observer];
    }

    bool isReduced() const override
    {
        return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion;
    }

private:
    id m_observer = nil;
};

} // namespace

std::unique_ptr<ReducedMotion> systemReducedMotion()
{
    return std::make_unique<MacReducedMotion>();
}

} // namespace zolva
