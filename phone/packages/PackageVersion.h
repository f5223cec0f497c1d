/// A package's version, with dpkg's order.
#pragma once

#include <compare>
#include <string>

namespace phone {

/// `[EPOCH:]UPSTREAM[-REVISION]`.
class PackageVersion {
public:
    /// Throws PackageError for what is no version.
    static PackageVersion parse(const std::string& text);

    /// As it was written.
    const std::string& text() const { return _text; }

    friend std::weak_ordering operator<=>(const PackageVersion& one, const PackageVersion& other);
    friend bool operator==(const PackageVersion& one, const PackageVersion& other) {
        return (one <=> other) == std::weak_ordering::equivalent;
    }

private:
    std::string _text;
    unsigned long _epoch = 0;
    std::string _upstream;
    std::string _revision;
};

} // namespace phone
