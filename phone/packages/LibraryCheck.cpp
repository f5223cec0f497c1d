#include "phone/packages/LibraryCheck.h"

#include "phone/macho/Format.h"
#include "phone/macho/Image.h"
#include "phone/macho/Installed.h"
#include "phone/macho/Slice.h"
#include "phone/packages/PackageError.h"

#include <elf.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace phone {

namespace {

using macho::thisProcessor;

constexpr unsigned elfMachine = thisProcessor == macho::arm64Processor ? EM_AARCH64 : EM_X86_64;

std::string packageToTake() {
    return "; install the package whose name ends in _" + macho::nameOf(thisProcessor) + ".deb";
}

[[noreturn]] void refuseForeign(const std::string& path) {
    throw PackageError(path + " is no library for this machine" + packageToTake());
}

void checkMachO(const std::string& path, const macho::Bytes& library) {
    const std::vector<std::uint32_t> found = macho::processors(library);
    if (found.empty()) {
        refuseForeign(path);
    }
    if (std::find(found.begin(), found.end(), thisProcessor) == found.end()) {
        std::string names;
        for (const std::uint32_t processor : found) {
            names += (names.empty() ? "" : ", ") + macho::nameOf(processor);
        }
        throw PackageError(path + " holds a slice for " + names + " and none for " + macho::nameOf(thisProcessor) +
                           ", which the phone here runs on" + packageToTake());
    }
    const auto image = macho::Image::read(macho::findSlice(library));
    for (const macho::Dependency& dependency : image.dependencies) {
        if (const auto provided = macho::installedVersion(dependency.path)) {
            (void)macho::serves(*provided, dependency, image.name);
        }
    }
}

/// As far as the system looks before it maps one.
void checkSharedObject(const std::string& path, const macho::Bytes& library) {
    if (library.size() < EI_NIDENT || !std::string_view(library.data(), EI_NIDENT).starts_with("\177ELF\2\1")) {
        refuseForeign(path);
    }
    const auto header = library.at<Elf64_Ehdr>(0, "the header");
    if (header.e_machine != elfMachine || header.e_type != ET_DYN) {
        refuseForeign(path);
    }
    for (std::uint64_t i = 0; i < header.e_phnum; ++i) {
        const auto segment = library.at<Elf64_Phdr>(header.e_phoff + i * sizeof(Elf64_Phdr), "its segments");
        if (segment.p_type == PT_LOAD) {
            (void)library.part(segment.p_offset, segment.p_filesz, "the end of a segment");
        }
    }
}

} // namespace

bool isLoadedLibrary(std::string_view path) {
    constexpr std::string_view folder = "/Library/MobileSubstrate/DynamicLibraries/";
    return path.starts_with(folder) && path.ends_with(".dylib") &&
           path.find('/', folder.size()) == std::string_view::npos;
}

void checkLibrary(const std::string& path, std::string_view library) {
    try {
        (macho::isMachO(library) ? checkMachO : checkSharedObject)(path, macho::Bytes(library));
    } catch (const macho::Refusal& refusal) {
        throw PackageError(path + " is a library that the phone does not load: " + refusal.what());
    }
}

} // namespace phone
