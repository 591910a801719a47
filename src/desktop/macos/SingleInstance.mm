#include "desktop/SingleInstance.h"

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>

#include <functional>

@interface ZolvaReopenTarget : NSObject
@property(nonatomic) std::function<void()> reopen;
@end

@implementation ZolvaReopenTarget
- (void)reopened:(NSAppleEventDescriptor*)event withReply:(NSAppleEventDescriptor*)reply
{
    self.reopen();
}
@end

namespace zolva {

namespace {

/// One to work in: neither the item in the menu bar nor the panel behind it.
bool hasVisibleWindow()
{
    for (NSWindow* window in NSApplication.sharedApplication.windows) {
        if (window.visible && window.canBecomeMainWindow &&
            ![window isKindOfClass:NSPanel.class]) {
            return true;
        }
    }
    return false;
}

/// The system starts a bundle once, and tells the one that runs by an event when it is opened
/// again. That it comes forward tells nothing: a click on its item in the menu bar does that too.
class MacInstance final : public SingleInstance
{
public:
    Standing claim(const QString& /*token*/) override
    {
        m_target.reopen = [this] {
            if (!hasVisibleWindow()) {
                Q_EMIT asked({});
            }
        };
        if (NSRunningApplication.currentApplication.finishedLaunching) {
            listen();
            return Standing::First;
        }
        // While it launches the application takes this event for itself.
        m_observer = [NSNotificationCenter.defaultCenter
            addObserverForName:NSApplicationDidFinishLaunchingNotification
                        object:nil
                         queue:NSOperationQueue.mainQueue
                    usingBlock:^(NSNotification*) {
                      listen();
                    }];
        return Standing::First;
    }
    ~MacInstance() override
    {
        if (m_observer) {
            [NSNotificationCenter.defaultCenter removeObserver:m_observer];
        }
        [NSAppleEventManager.sharedAppleEventManager
            removeEventHandlerForEventClass:kCoreEventClass
                                 andEventID:kAEReopenApplication];
    }

private:
    void listen()
    {
        [NSAppleEventManager.sharedAppleEventManager
            setEventHandler:m_target
                andSelector:@selector(reopened:withReply:)
              forEventClass:kCoreEventClass
                 andEventID:kAEReopenApplication];
    }

    ZolvaReopenTarget* m_target = [ZolvaReopenTarget new];
    id m_observer = nil;
};

} // namespace

std::unique_ptr<SingleInstance> systemSingleInstance()
{
    return std::make_unique<MacInstance>();
}

QString activationToken()
{
    return {};
}

} // namespace zolva
