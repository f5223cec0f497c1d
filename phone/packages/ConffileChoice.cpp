#include "phone/packages/ConffileChoice.h"

namespace phone {

ConffileChoice chooseConffile(const std::optional<std::string>& recorded, const std::optional<std::string>& present,
                              const std::string& packaged) {
    if (present == packaged) {
        return ConffileChoice::Keep;
    }
    if (!recorded) {
        return present ? ConffileChoice::KeepBeside : ConffileChoice::Install;
    }
    if (present == recorded) {
        return ConffileChoice::Install;
    }
    return packaged == *recorded ? ConffileChoice::Keep : ConffileChoice::KeepBeside;
}

} // namespace phone
