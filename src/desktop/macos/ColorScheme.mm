#include "desktop/ColorScheme.h"

#import <AppKit/AppKit.h>

namespace zolva {

namespace {

class MacColorScheme final : public SystemAppearance
{
public:
    MacColorScheme()
    {
        m_observer = [NSDistributedNotificationCenter.defaultCenter
            addObserverForName:@"AppleInterfaceThemeChangedNotification"
                        object:nil
                         queue:NSOperationQueue.mainQueue
                    usingBlock:^(NSNotification*) {
                      Q_EMIT changed();
                    }];
    }
    ~MacColorScheme() override
    {
        [NSDistributedNotificationCenter.defaultCenter removeObserver:m_observer];
    }

    std::optional<bool> isDark() const override
    {
        NSAppearanceName best = [NSApplication.sharedApplication.effectiveAppearance
            bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
        return best ? std::optional<bool>([best isEqualToString:NSAppearanceNameDarkAqua])
                    : std::nullopt;
    }

private:
    id m_observer = nil;
};

} // namespace

std::unique_ptr<SystemAppearance> systemColorScheme()
{
    return std::make_unique<MacColorScheme>();
}

} // namespace zolva
