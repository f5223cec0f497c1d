/// Fields in the form of a package's control file, which the record of what is installed has too.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace phone {

/// One paragraph, in the order it was written. Names match in any case.
class ControlFields {
public:
    /// The value, "" for a field that is missing; a line break stands where the value goes on in a further line.
    const std::string& value(std::string_view name) const;
    /// Puts the field at the end, or in the place it had.
    void set(const std::string& name, const std::string& value);
    void remove(std::string_view name);
    bool has(std::string_view name) const;
    bool isEmpty() const { return _fields.empty(); }
    /// The paragraph as it stands in a file, with a line break at its end.
    std::string text() const;

private:
    std::vector<std::pair<std::string, std::string>> _fields;
};

/// The paragraphs of a file. Throws PackageError, with the number of the line.
std::vector<ControlFields> parseControlFields(std::string_view text);

} // namespace phone
