#include "desktop/TrayItem.h"

#include "desktop/MenuBarIcon.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <utility>

@interface ZolvaTrayTarget : NSObject
@property(nonatomic) std::function<void()> click;
@property(nonatomic) std::function<void(int)> choose;
@end

@implementation ZolvaTrayTarget
- (void)clicked:(id)sender
{
    self.click();
}
- (void)chosen:(NSMenuItem*)sender
{
    self.choose(static_cast<int>(sender.tag));
}
@end

namespace zolva {

namespace {

NSImage* templateImage()
{
    NSImage* image = [[NSImage alloc] initWithSize:NSMakeSize(18, 18)];
    for (const int width : {18, 36}) {
        const QImage drawn = menuBarIcon(width, Qt::black);
        CGImageRef pixels = drawn.toCGImage();
        NSBitmapImageRep* rep = [[NSBitmapImageRep alloc] initWithCGImage:pixels];
        rep.size = NSMakeSize(18, 18);
        [image addRepresentation:rep];
        CGImageRelease(pixels);
    }
    image.template = YES; // the system tints it
    return image;
}

/// A menu-bar extra: a click opens the panel, the other button the menu. The entries that belong
/// to the program's own menu stand there too.
class MacTrayItem final : public TrayItem
{
public:
    MacTrayItem() : m_target([ZolvaTrayTarget new])
    {
        m_target.click = [this] { click(); };
        m_target.choose = [this](int entry) { Q_EMIT chosen(entry); };
    }
    ~MacTrayItem() override
    {
        if (m_item) {
            [NSStatusBar.systemStatusBar removeStatusItem:m_item];
        }
    }

    void start() override
    {
        m_item =
            [NSStatusBar.systemStatusBar statusItemWithLength:NSVariableStatusItemLength];
        m_item.button.image = templateImage();
        m_item.button.imagePosition = NSImageLeading;
        m_item.button.target = m_target;
        m_item.button.action = @selector(clicked:);
        [m_item.button sendActionOn:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown];
        showTexts();
        showInOwnMenu();
        Q_EMIT shownChanged();
    }
    bool isShown() const override { return m_item != nil; }

    void setTexts(const QString& label, const QString& toolTip) override
    {
        m_label = label;
        m_toolTip = toolTip;
        showTexts();
    }
    void setEntries(std::vector<TrayEntry> entries) override
    {
        m_menu = [NSMenu new];
        m_menu.autoenablesItems = NO;
        for (std::size_t place = 0; place < entries.size(); ++place) {
            [m_menu addItem:menuItem(entries[place], static_cast<int>(place))];
        }
        m_entries = std::move(entries);
        showInOwnMenu();
    }
    void setOnDark(bool /*isDark*/) override {}

private:
    NSMenuItem* menuItem(const TrayEntry& entry, int place)
    {
        NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:entry.title.toNSString()
                                                      action:@selector(chosen:)
                                               keyEquivalent:@""];
        item.target = m_target;
        item.tag = place;
        item.enabled = entry.isEnabled;
        return item;
    }
    /// What lies between opening and quitting, which the program's own menu has already, stands
    /// there after "About", as everywhere on this system.
    void showInOwnMenu()
    {
        NSMenu* own = NSApplication.sharedApplication.mainMenu.itemArray.firstObject.submenu;
        for (NSMenuItem* item in m_ownItems) {
            [item.menu removeItem:item];
        }
        [m_ownItems removeAllObjects];
        for (std::size_t place = 1; own && place + 1 < m_entries.size(); ++place) {
            NSMenuItem* item = menuItem(m_entries[place], static_cast<int>(place));
            [own insertItem:item
                    atIndex:MIN(static_cast<NSInteger>(place), own.numberOfItems)];
            [m_ownItems addObject:item];
        }
    }
    void showTexts()
    {
        m_item.button.title = m_label.toNSString();
        m_item.button.toolTip =
            (m_toolTip.isEmpty() ? QStringLiteral("Zolva") : QStringLiteral("Zolva, ") + m_toolTip)
                .toNSString();
    }
    void click()
    {
        if (NSApplication.sharedApplication.currentEvent.type == NSEventTypeRightMouseDown) {
            [m_menu popUpMenuPositioningItem:nil
                                  atLocation:NSMakePoint(0, m_item.button.bounds.size.height + 4)
                                      inView:m_item.button];
            return;
        }
        // The system counts from below.
        const NSRect place = m_item.button.window.frame;
        const CGFloat top = NSScreen.screens.firstObject.frame.size.height;
        Q_EMIT activated(QRectF(place.origin.x, top - place.origin.y - place.size.height,
                                place.size.width, place.size.height)
                             .toRect());
    }

    ZolvaTrayTarget* m_target;
    NSStatusItem* m_item = nil;
    NSMenu* m_menu = nil;
    std::vector<TrayEntry> m_entries;
    NSMutableArray<NSMenuItem*>* m_ownItems = [NSMutableArray new];
    QString m_label;
    QString m_toolTip;
};

} // namespace

std::unique_ptr<TrayItem> systemTrayItem()
{
    return std::make_unique<MacTrayItem>();
}

} // namespace zolva
