/// What is wrong with a package or with the record of what is installed.
#pragma once

#include <stdexcept>

namespace phone {

/// One line without its place; whoever knows the file puts it in front.
class PackageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace phone
