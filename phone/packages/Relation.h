/// What a package says about other packages: `Depends`, `Conflicts`, `Provides` and the like.
#pragma once

#include "phone/packages/PackageVersion.h"

#include <optional>
#include <string>
#include <vector>

namespace phone {

/// A package, perhaps of certain versions only.
struct Relation {
    enum class Order { Less, LessOrEqual, Equal, GreaterOrEqual, Greater };

    std::string package;
    Order order = Order::Equal;
    std::optional<PackageVersion> version; // none: any

    bool accepts(const PackageVersion& other) const;
    /// As it is written: `name (>= 1.0)`.
    std::string text() const;
};

/// Any one of these will do.
using Alternatives = std::vector<Relation>;

/// The value of such a field, nothing for "". Throws PackageError.
std::vector<Alternatives> parseRelations(const std::string& text);

/// Whether dpkg takes this for the name of a package.
bool isPackageName(const std::string& name);

} // namespace phone
