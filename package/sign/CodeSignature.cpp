#include "package/sign/CodeSignature.h"

#include <nettle/sha1.h>
#include <nettle/sha2.h>

#include <algorithm>
#include <cstdint>

namespace package {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t superBlobMagic = 0xfade0cc0;
constexpr std::uint32_t codeDirectoryMagic = 0xfade0c02;
constexpr std::uint32_t requirementsMagic = 0xfade0c01;

constexpr std::uint32_t codeDirectorySlot = 0;
constexpr std::uint32_t requirementsSlot = 2;
constexpr std::uint32_t alternateCodeDirectorySlot = 0x1000;

constexpr std::uint32_t codeDirectoryVersion = 0x20400; // the first that says where the code's segment lies
constexpr std::size_t codeDirectorySize = 88;
constexpr std::size_t superBlobSize = 12 + 3 * 8;
constexpr std::uint32_t specialSlots = 2; // the bundle's description, which there is none of, and the requirements
constexpr std::uint8_t pageShift = 12;
constexpr std::size_t pageSize = std::size_t{1} << pageShift;

void append32(Bytes& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
    }
}

void append64(Bytes& bytes, std::uint64_t value) {
    append32(bytes, static_cast<std::uint32_t>(value >> 32));
    append32(bytes, static_cast<std::uint32_t>(value));
}

Bytes requirements() {
    Bytes blob;
    append32(blob, requirementsMagic);
    append32(blob, 12); // its length
    append32(blob, 0);  // how many
    return blob;
}

struct Hash {
    std::uint8_t type;
    std::uint8_t size;
    Bytes (*of)(const std::uint8_t* data, std::size_t size);
};

constexpr Hash sha1{1, SHA1_DIGEST_SIZE, [](const std::uint8_t* data, std::size_t size) {
                        sha1_ctx context;
                        sha1_init(&context);
                        sha1_update(&context, size, data);
                        Bytes digest(SHA1_DIGEST_SIZE);
                        sha1_digest(&context, digest.size(), digest.data());
                        return digest;
                    }};

constexpr Hash sha256{2, SHA256_DIGEST_SIZE, [](const std::uint8_t* data, std::size_t size) {
                          sha256_ctx context;
                          sha256_init(&context);
                          sha256_update(&context, size, data);
                          Bytes digest(SHA256_DIGEST_SIZE);
                          sha256_digest(&context, digest.size(), digest.data());
                          return digest;
                      }};

std::size_t pages(std::size_t codeSize) { return (codeSize + pageSize - 1) / pageSize; }

std::size_t directorySize(std::size_t codeSize, const std::string& identifier, const Hash& hash) {
    return codeDirectorySize + identifier.size() + 1 + (specialSlots + pages(codeSize)) * hash.size;
}

/// What the first bytes of the library, up to its signature, hash to, page by page.
Bytes codeDirectory(const MachO& library, std::size_t codeSize, const std::string& identifier, const Hash& hash) {
    const std::size_t hashes = codeDirectorySize + identifier.size() + 1 + std::size_t{specialSlots} * hash.size;
    Bytes blob;
    append32(blob, codeDirectoryMagic);
    append32(blob, static_cast<std::uint32_t>(directorySize(codeSize, identifier, hash)));
    append32(blob, codeDirectoryVersion);
    append32(blob, 0); // flags
    append32(blob, static_cast<std::uint32_t>(hashes));
    append32(blob, codeDirectorySize); // where the identifier is
    append32(blob, specialSlots);
    append32(blob, static_cast<std::uint32_t>(pages(codeSize)));
    append32(blob, static_cast<std::uint32_t>(codeSize));
    blob.insert(blob.end(), {hash.size, hash.type, 0, pageShift});
    append32(blob, 0); // reserved
    append32(blob, 0); // no scattered pages
    append32(blob, 0); // no team
    append32(blob, 0); // reserved
    append64(blob, 0); // the code's size once more, for what is larger than 4 GiB
    append64(blob, library.textOffset());
    append64(blob, library.textSize());
    append64(blob, 0); // what only a program has
    blob.insert(blob.end(), identifier.begin(), identifier.end());
    blob.push_back(0);

    const Bytes required = requirements();
    const Bytes requiredHash = hash.of(required.data(), required.size());
    blob.insert(blob.end(), requiredHash.begin(), requiredHash.end());
    blob.insert(blob.end(), hash.size, 0);
    for (std::size_t offset = 0; offset < codeSize; offset += pageSize) {
        const Bytes page = hash.of(library.bytes().data() + offset, std::min(pageSize, codeSize - offset));
        blob.insert(blob.end(), page.begin(), page.end());
    }
    return blob;
}

} // namespace

void sign(MachO& library, const std::string& identifier) {
    const std::size_t alignment = 16;
    const std::size_t codeSize = (library.bytes().size() + alignment - 1) / alignment * alignment;
    const Bytes required = requirements();
    const std::size_t size = superBlobSize + directorySize(codeSize, identifier, sha1) + required.size() +
                             directorySize(codeSize, identifier, sha256);
    const std::size_t offset = library.addSignature(size);

    // The pages are hashed as they stand with the new load command.
    const Bytes first = codeDirectory(library, offset, identifier, sha1);
    const Bytes second = codeDirectory(library, offset, identifier, sha256);
    Bytes blob;
    append32(blob, superBlobMagic);
    append32(blob, static_cast<std::uint32_t>(size));
    append32(blob, 3);
    append32(blob, codeDirectorySlot);
    append32(blob, superBlobSize);
    append32(blob, requirementsSlot);
    append32(blob, static_cast<std::uint32_t>(superBlobSize + first.size()));
    append32(blob, alternateCodeDirectorySlot);
    append32(blob, static_cast<std::uint32_t>(superBlobSize + first.size() + required.size()));
    for (const Bytes* part : {&first, &required, &second}) {
        blob.insert(blob.end(), part->begin(), part->end());
    }
    library.write(offset, blob);
}

} // namespace package
