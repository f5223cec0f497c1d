/// Entries for files read and written by the phone application, in the log.
#pragma once

#include "platform/foundation/NSString.h"

#include <string>

namespace phone {

/// One reading or writing of a whole file, for as long as it lives. Adds {"action", "path", "ok"} to the
/// log at its end, once for nested readings of the same thread: the outermost stands for all. Paths that
/// are not the device's are not logged.
class FileEntry {
public:
    enum class Action { Read, Write };

    FileEntry(Action action, const NSString& path);
    FileEntry(Action action, std::string path);
    ~FileEntry();
    FileEntry(const FileEntry&) = delete;
    FileEntry& operator=(const FileEntry&) = delete;

    /// What came of it; without a call it counts as failed. Answers its argument.
    bool finish(bool ok) {
        _ok = ok;
        return ok;
    }

private:
    Action _action;
    std::string _path;
    bool _ok = false;
};

/// Makes Foundation's strings and data leave entries when they are read from and written to files.
void installFileLog();

} // namespace phone
