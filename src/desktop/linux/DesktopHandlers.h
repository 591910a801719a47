#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Which programs the desktop has for what; read from the environment and the disk at each call.
namespace zolva {

/// Whether an installed program is registered for the kind of content ("inode/directory",
/// "x-scheme-handler/trash").
[[nodiscard]] bool hasHandler(const QByteArray& mimeType);

/// The desktop's settings program: that of the desktop that runs before all others. Its full path
/// and its arguments; empty where there is none.
[[nodiscard]] QStringList settingsProgram();

/// What opens a URI: the program's full path and the arguments before the URI; empty where there is
/// none.
[[nodiscard]] QStringList uriOpener();

} // namespace zolva
