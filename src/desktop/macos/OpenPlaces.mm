#include "desktop/OpenPlaces.h"

#include "async/Background.h"
#include "async/Unawaited.h"
#include "desktop/RevealedPlace.h"

#import <AppKit/AppKit.h>

namespace zolva {

namespace {

NSString* textOf(const std::string& path)
{
    return [NSFileManager.defaultManager stringWithFileSystemRepresentation:path.c_str()
                                                                     length:path.size()];
}

void openTrash(const Places& places)
{
    NSURL* folder = [NSURL fileURLWithPath:textOf(places.trashFolder) isDirectory:YES];
    if (![NSWorkspace.sharedWorkspace openURL:folder]) {
        places.tell(cannotOpen(placewords::trash, places.trashFolder));
    }
}

void openLogFolder(const Places& places)
{
    if (![NSWorkspace.sharedWorkspace selectFile:nil
                        inFileViewerRootedAtPath:textOf(places.logFolder)]) {
        places.tell(cannotOpen(placewords::logFolder, places.logFolder));
    }
}

void openAccessSettings(const Places& places)
{
    NSURL* url = [NSURL
        URLWithString:
            @"x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"];
    if (url && ![NSWorkspace.sharedWorkspace openURL:url]) {
        places.tell(QString::fromUtf8(placewords::accessSettings));
    }
}

void openPage(const Places& places, const std::string& address)
{
    NSURL* url = [NSURL URLWithString:@(address.c_str())];
    if (!url || ![NSWorkspace.sharedWorkspace openURL:url]) {
        places.tell(cannotOpenPage(address));
    }
}

QCoro::Task<> reveal(std::string path)
{
    const RevealedPlace place = co_await background(revealedPlace, path);
    NSURL* item = [NSURL fileURLWithFileSystemRepresentation:place.item.c_str()
                                                 isDirectory:place.item == place.folder
                                               relativeToURL:nil];
    [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ item ]];
}

void openToolLicense(const Places& places)
{
    if (places.toolLicense.empty()) {
        return;
    }
    NSURL* file = [NSURL fileURLWithPath:textOf(places.toolLicense) isDirectory:NO];
    if (![NSWorkspace.sharedWorkspace openURL:file]) {
        places.tell(cannotOpen(placewords::toolLicense, places.toolLicense));
    }
}

} // namespace

AppDoors systemDoors(Places places)
{
    return {.accessSettings = [places] { openAccessSettings(places); },
            .logFolder = [places] { openLogFolder(places); },
            .trash = [places] { openTrash(places); },
            .page = [places](const std::string& url) { openPage(places, url); },
            .reveal = [](const std::string& path) { unawaited(reveal(path)); },
            .toolLicense = [places] { openToolLicense(places); }};
}

} // namespace zolva
