#include "phone/flow/AtomicFile.h"

#include "phone/flow/InputError.h"

#include <fstream>
#include <unistd.h>

namespace phone {

void writeAtomically(const std::filesystem::path& file, const std::string& content) {
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    const std::filesystem::path beside = file.string() + "." + std::to_string(getpid()) + ".new";
    {
        std::ofstream stream(beside, std::ios::binary);
        stream << content;
        stream.close();
        if (!stream) {
            std::filesystem::remove(beside, error);
            throw InputError({file.string(), 0}, "cannot be written");
        }
    }
    std::filesystem::rename(beside, file, error);
    if (error) {
        std::error_code ignored;
        std::filesystem::remove(beside, ignored);
        throw InputError({file.string(), 0}, "cannot be written: " + error.message());
    }
}

} // namespace phone
