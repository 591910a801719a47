#pragma once

/// The variables of the environment for code that runs on any thread. The toolkit sets and unsets
/// some as it goes, during which nobody else may look at those of the process.
namespace zolva {

/// From now on they stand here as they do now, whatever becomes of the process's own, but for those
/// that let the program's own window take the focus. Once, before there are threads; without it
/// each is looked up when it is asked for.
void keepEnvironment();

/// Null where it is unset. Any thread, if they are kept or nobody changes one meanwhile; the text
/// stays as long as that.
[[nodiscard]] const char* environmentValue(const char* name);

/// All of them for a child process, up to a null. Likewise.
[[nodiscard]] char* const* wholeEnvironment();

} // namespace zolva
