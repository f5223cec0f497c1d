/// Property lists in files, as the platform reads and writes them.
#pragma once

#include "platform/foundation/NSString.h"

#include <optional>
#include <string>

namespace phone {

/// A whole file of the device or the host; nullopt when it is missing, no regular file, too large for a device,
/// or cannot be read.
std::optional<std::string> readFile(const std::string& path);

/// Writes a whole file. Atomically means that at any moment, a crash included, either the old file or the
/// new one stands there. False when it cannot be written; leaves nothing behind then.
bool writeFile(const std::string& path, const std::string& bytes, bool atomically);

/// Of an XML, binary or old-style property list, or a strings table; the containers are immutable. nil for
/// anything else, without an exception and without a word.
NSObject parsePropertyList(const std::string& bytes);

/// Whether this is a string, number, date or data, or an array or dictionary (with strings as its keys) of
/// such.
bool isPropertyList(const NSObject& object);

/// Makes arrays and dictionaries read and write files as the platform does: every format is read, XML is
/// written, and what is no property list is refused before the file is touched.
void installPropertyLists();

} // namespace phone
