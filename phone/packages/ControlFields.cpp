#include "phone/packages/ControlFields.h"

#include "phone/packages/PackageError.h"

#include <algorithm>
#include <cctype>

namespace phone {

namespace {

bool isSameName(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](unsigned char left, unsigned char right) {
        return std::tolower(left) == std::tolower(right);
    });
}

auto find(auto& fields, std::string_view name) {
    return std::find_if(fields.begin(), fields.end(), [&](const auto& field) { return isSameName(field.first, name); });
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isFieldName(std::string_view name) {
    return !name.empty() && name.front() != '-' && name.front() != '#' &&
           std::all_of(name.begin(), name.end(), [](char character) { return character > ' ' && character < 0x7f; });
}

} // namespace

const std::string& ControlFields::value(std::string_view name) const {
    static const std::string none;
    const auto field = find(_fields, name);
    return field == _fields.end() ? none : field->second;
}

bool ControlFields::has(std::string_view name) const { return find(_fields, name) != _fields.end(); }

void ControlFields::set(const std::string& name, const std::string& value) {
    if (const auto field = find(_fields, name); field != _fields.end()) {
        field->second = value;
    } else {
        _fields.emplace_back(name, value);
    }
}

void ControlFields::remove(std::string_view name) {
    std::erase_if(_fields, [&](const auto& field) { return isSameName(field.first, name); });
}

std::string ControlFields::text() const {
    std::string all;
    for (const auto& [name, value] : _fields) {
        all += name + ":" + (value.empty() || value.front() == '\n' ? "" : " ");
        for (const char character : value) {
            all += character;
            all += character == '\n' ? " " : "";
        }
        all += '\n';
    }
    return all;
}

std::vector<ControlFields> parseControlFields(std::string_view text) {
    std::vector<ControlFields> paragraphs;
    ControlFields current;
    std::string name;
    int number = 0;
    const auto wrong = [&](const std::string& what) {
        throw PackageError("line " + std::to_string(number) + ": " + what);
    };
    const auto endParagraph = [&] {
        if (!current.isEmpty()) {
            paragraphs.push_back(std::move(current));
        }
        current = {};
        name.clear();
    };
    while (!text.empty()) {
        const auto end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        ++number;
        if (line.find('\0') != std::string_view::npos) {
            wrong("a zero byte");
        }
        if (trimmed(line).empty()) {
            endParagraph();
        } else if (line.front() == ' ' || line.front() == '\t') {
            if (name.empty()) {
                wrong("goes on with a field where none has begun");
            }
            current.set(name, current.value(name) + "\n" + std::string(line.substr(1)));
        } else {
            const auto colon = line.find(':');
            if (colon == std::string_view::npos || !isFieldName(line.substr(0, colon))) {
                wrong("no field; one looks like `Name: value`");
            }
            name = line.substr(0, colon);
            if (current.has(name)) {
                wrong("the field " + name + " stands twice");
            }
            current.set(name, std::string(trimmed(line.substr(colon + 1))));
        }
    }
    endParagraph();
    return paragraphs;
}

} // namespace phone
