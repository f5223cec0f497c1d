/// A slice's load commands and bytes, as a reader shows them that had no part in making it.
#pragma once

#include "tests/package/ShippedPackage.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace package {

/// The lines below a heading: "vmsize" to "0x4000".
struct Fields {
    std::map<std::string, std::string> values;

    const std::string& text(const std::string& name) const { return values.at(name); }
    std::uint64_t number(const std::string& name) const { return std::stoull(values.at(name), nullptr, 0); }
};

struct LoadCommand : Fields {
    std::string kind;
    std::vector<Fields> sections;
};

/// What `llvm-otool -l` prints.
inline std::vector<LoadCommand> readLoadCommands(const std::string& shown) {
    std::vector<LoadCommand> commands;
    Fields* fields = nullptr;
    for (const std::string& line : lines(shown)) {
        std::istringstream words(line);
        std::string name;
        std::string value;
        words >> name >> value;
        if (line.starts_with("Load command ")) {
            fields = &commands.emplace_back();
        } else if (name == "Section") {
            fields = &commands.back().sections.emplace_back();
        } else if (name == "cmd") {
            commands.back().kind = value;
        } else if (value == "version" || value == "stamp") {
            words >> fields->values[name + " " + value];
        } else if (fields != nullptr) {
            fields->values[name] = value;
        }
    }
    return commands;
}

/// The slice of one processor as it ships.
class ReadSlice : public ShippedPackage {
protected:
    explicit ReadSlice(const std::string& processor)
        : processor(processor), path(slice(processor)), bytes(folder.read(processor + "/Quorvan.dylib")),
          commands(readLoadCommands(output("llvm-otool-19 -l '" + path + "'"))) {}

    std::vector<LoadCommand> all(const std::string& kind) const {
        std::vector<LoadCommand> found;
        std::copy_if(commands.begin(), commands.end(), std::back_inserter(found),
                     [&](const LoadCommand& command) { return command.kind == kind; });
        return found;
    }
    /// The one command of this kind.
    LoadCommand one(const std::string& kind) const {
        const auto found = all(kind);
        if (found.size() != 1) {
            throw std::runtime_error(std::to_string(found.size()) + " of " + kind);
        }
        return found[0];
    }
    std::vector<LoadCommand> segments() const { return all(isWide() ? "LC_SEGMENT_64" : "LC_SEGMENT"); }
    Fields section(const std::string& segment, const std::string& name) const {
        for (const LoadCommand& command : segments()) {
            for (const Fields& section : command.sections) {
                if (section.text("segname") == segment && section.text("sectname") == name) {
                    return section;
                }
            }
        }
        throw std::runtime_error("no section " + segment + "," + name);
    }

    bool isWide() const { return processor != "armv7"; }
    std::uint64_t pointerSize() const { return isWide() ? 8 : 4; }
    /// What stands at an address, before anything is moved or bound.
    std::uint64_t pointer(std::uint64_t address) const { return isWide() ? at<std::uint64_t>(address) : word(address); }
    std::uint32_t word(std::uint64_t address) const { return at<std::uint32_t>(address); }

    std::string processor;
    std::string path;
    std::string bytes;
    std::vector<LoadCommand> commands;

private:
    template <class T>
    T at(std::uint64_t address) const {
        for (const LoadCommand& segment : segments()) {
            const std::uint64_t inside = address - segment.number("vmaddr");
            if (address >= segment.number("vmaddr") && inside + sizeof(T) <= segment.number("filesize")) {
                T value;
                std::memcpy(&value, &bytes.at(segment.number("fileoff") + inside), sizeof(T));
                return value;
            }
        }
        throw std::runtime_error("nothing at address " + std::to_string(address));
    }
};

} // namespace package
