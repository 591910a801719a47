"""The disk as anybody could look at it, and the texts of sizes, told apart from the program's own."""

import os
import stat


def snapshot(root, leave_out=()):
    """Every entry below `root`: path to kind, size and time of modification."""
    found = {}
    for folder, folders, files in os.walk(root):
        for name in folders + files:
            path = os.path.join(folder, name)
            short = os.path.relpath(path, root)
            if any(short == out or short.startswith(out + "/") for out in leave_out):
                continue
            info = os.lstat(path)
            kind = stat.S_IFMT(info.st_mode)
            size = info.st_size if stat.S_ISREG(info.st_mode) else 0
            # The time of a folder changes with what leaves it.
            time = info.st_mtime_ns if stat.S_ISREG(info.st_mode) else 0
            found[short] = (kind, size, time)
    return found


def below(entries, path):
    """What of a snapshot is `path` or lies in it, with paths counted from there."""
    return {short[len(path):]: told for short, told in entries.items()
            if short == path or short.startswith(path + "/")}


def without(entries, paths):
    return {short: told for short, told in entries.items()
            if not any(short == path or short.startswith(path + "/") for path in paths)}


def blocks(path):
    """Bytes that the regular files at or below `path` take on the disk."""
    if not os.path.isdir(path):
        return os.lstat(path).st_blocks * 512
    total = 0
    for folder, _, files in os.walk(path):
        for name in files:
            info = os.lstat(os.path.join(folder, name))
            if stat.S_ISREG(info.st_mode):
                total += info.st_blocks * 512
    return total


def size_text(size):
    if size < 1000:
        return "%d bytes" % size
    if size < 1000 ** 2:
        return "%.0f KB" % (size / 1000)
    if size < 1000 ** 3:
        return "%.1f MB" % (size / 1000 ** 2)
    return "%.2f GB" % (size / 1000 ** 3)


def short_path(path):
    return path if len(path) <= 58 else path[:24] + "…" + path[-31:]
