#pragma once

#include <string>
#include <vector>

/// The application bundles of this machine, for `uninstall --list`. Any thread.
namespace zolva::mole {

/// Where applications are looked for: "/Applications" and the home folder's own, each once.
[[nodiscard]] std::vector<std::string> applicationFolders();

struct BundleRow
{
    std::string name;          ///< display name, else name, of its Info.plist, else its file name
    std::string bundleID;      ///< "unknown" where the bundle has none
    std::string source;        ///< the folder it was looked for in, home as "~"
    std::string uninstallName; ///< its file name without ".app"
    std::string path;
    std::string size; ///< on disk
};

/// Every folder named "….app" with a Contents/Info.plist at any depth below the folders, in their
/// order, sorted by path. Links are not followed, and bundles within bundles belong to those. A
/// path that is not UTF-8 cannot be told in JSON: such a bundle is left out and added to
/// `untellable`.
[[nodiscard]] std::vector<BundleRow> bundlesBelow(const std::vector<std::string>& folders,
                                                  std::vector<std::string>& untellable);

/// The rows as one JSON array (RFC 8259) without a line feed. Pure.
[[nodiscard]] std::string appListDocument(const std::vector<BundleRow>& rows);

} // namespace zolva::mole
