#include "files/FolderListing.h"

#include "files/WalkSystem.h"

#include <unistd.h>

namespace zolva {

namespace {

EntryKind entryKind(NodeKind kind)
{
    switch (kind) {
    case NodeKind::File:
        return EntryKind::File;
    case NodeKind::Folder:
        return EntryKind::Folder;
    case NodeKind::Link:
        return EntryKind::Link;
    default:
        return EntryKind::Other;
    }
}

} // namespace

std::optional<std::vector<FolderEntry>> listFolder(const std::string& folder, HiddenEntries hidden)
{
    bool spareTimes = true;
    const int descriptor = openFolder(folder, spareTimes);
    if (descriptor < 0) {
        return std::nullopt;
    }
    std::vector<FolderEntry> entries;
    FolderReader reader;
    FolderReader::Entry entry;
    reader.start(descriptor);
    while (reader.next(entry)) {
        if (hidden == HiddenEntries::Skip && entry.name[0] == '.') {
            continue;
        }
        NodeStatus status;
        status.kind = entry.kind;
        if (entry.kind == NodeKind::Unknown && !statusOf(descriptor, entry.name, status)) {
            status.kind = NodeKind::Other;
        }
        entries.push_back({entry.name, entryKind(status.kind)});
    }
    ::close(descriptor);
    if (reader.failed()) {
        return std::nullopt;
    }
    return entries;
}

bool existsAt(const std::string& path)
{
    NodeStatus status;
    return statusOf(path, LastLink::Follow, status);
}

bool isFolderAt(const std::string& path)
{
    NodeStatus status;
    return statusOf(path, LastLink::Follow, status) && status.kind == NodeKind::Folder;
}

} // namespace zolva
