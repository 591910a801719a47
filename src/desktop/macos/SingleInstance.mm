#include "desktop/SingleInstance.h"

#import <AppKit/AppKit.h>

namespace zolva {

namespace {

/// The system starts a bundle once, and tells the one that runs by an event when it is opened
/// again.
class MacInstance final : public SingleInstance
{
public:
    Standing claim(const QString& /*token*/) override
    {
        m_observer = [NSNotificationCenter.defaultCenter
            addObserverForName:NSApplicationDidBecomeActiveNotification
                        object:nil
                         queue:NSOperationQueue.mainQueue
                    usingBlock:^(NSNotification*) {
                      Q_EMIT asked({});
                    }];
        return Standing::First;
    }
    ~MacInstance() override { [NSNotificationCenter.defaultCenter removeObserver:m_observer]; }

private:
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
