/// Gives a dynamic library of one processor an ad-hoc signature under its file's name.
///
///     sign-dylib UNSIGNED SIGNED
#include "package/sign/CodeSignature.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: sign-dylib UNSIGNED SIGNED\n");
        return 2;
    }
    const std::filesystem::path from = arguments[1];
    const std::filesystem::path to = arguments[2];
    std::error_code error;
    const auto size = std::filesystem::file_size(from, error);
    std::vector<std::uint8_t> bytes(error ? 0 : size);
    std::ifstream in(from, std::ios::binary);
    if (error || !in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()))) {
        std::fprintf(stderr, "sign-dylib: %s: cannot be read\n", from.c_str());
        return 1;
    }
    try {
        package::MachO library(std::move(bytes));
        library.partSegments();
        package::sign(library, to.filename().string());
        std::ofstream out(to, std::ios::binary);
        out.write(reinterpret_cast<const char*>(library.bytes().data()),
                  static_cast<std::streamsize>(library.bytes().size()));
        if (!out.flush()) {
            std::fprintf(stderr, "sign-dylib: %s: cannot be written\n", to.c_str());
            return 1;
        }
    } catch (const package::SigningError& reason) {
        std::fprintf(stderr, "sign-dylib: %s: %s\n", from.c_str(), reason.what());
        return 1;
    }
    return 0;
}
