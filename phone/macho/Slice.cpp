#include "phone/macho/Slice.h"

#include "phone/macho/Format.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <optional>

namespace phone::macho {

namespace {

static_assert(std::endian::native == std::endian::little);

constexpr std::uint32_t swapped(std::uint32_t number) { return __builtin_bswap32(number); }
constexpr std::uint64_t swapped(std::uint64_t number) { return __builtin_bswap64(number); }

struct Place {
    std::uint32_t processor;
    std::uint64_t offset, size;
};

template <class Entry>
std::vector<Place> places(const Bytes& file, std::uint32_t count) {
    constexpr std::uint32_t most = 64; // processors; no file has more
    if (count > most) {
        throw Refusal("the fat header counts " + std::to_string(count) + " slices");
    }
    std::vector<Place> found;
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto entry = file.at<Entry>(sizeof(FatHeader) + i * sizeof(Entry), "the fat header");
        found.push_back({swapped(entry.processor), swapped(entry.offset), swapped(entry.size)});
    }
    return found;
}

/// The slices of a fat file; nothing for any other.
std::optional<std::vector<Place>> fatPlaces(const Bytes& file) {
    const std::uint32_t magic = swapped(file.at<std::uint32_t>(0, "the header"));
    if (magic != fatMagic && magic != wideFatMagic) {
        return std::nullopt;
    }
    const std::uint32_t count = swapped(file.at<FatHeader>(0, "the fat header").count);
    return magic == fatMagic ? places<FatSlice>(file, count) : places<WideFatSlice>(file, count);
}

} // namespace

bool isMachO(std::string_view file) {
    if (file.size() < sizeof(std::uint32_t)) {
        return false;
    }
    const auto first = Bytes(file).at<std::uint32_t>(0, "the header");
    const auto is = [&](std::uint32_t magic) { return first == magic || first == swapped(magic); };
    return is(wideMagic) || is(narrowMagic) || is(fatMagic) || is(wideFatMagic);
}

std::vector<std::uint32_t> processors(const Bytes& file) {
    const auto slices = fatPlaces(file);
    if (!slices) {
        const auto magic = file.at<std::uint32_t>(0, "the header");
        const auto processor = file.at<std::uint32_t>(offsetof(Header, processor), "the header");
        return {magic == wideMagic || magic == narrowMagic ? processor : swapped(processor)};
    }
    std::vector<std::uint32_t> all;
    for (const Place& place : *slices) {
        all.push_back(place.processor);
    }
    return all;
}

Bytes findSlice(const Bytes& file) {
    const auto slices = fatPlaces(file);
    if (!slices) {
        return file;
    }
    const auto mine = std::find_if(slices->begin(), slices->end(),
                                   [](const Place& place) { return place.processor == thisProcessor; });
    if (mine == slices->end()) {
        throw Refusal("no slice for " + nameOf(thisProcessor));
    }
    return file.part(mine->offset, mine->size, "the end of its slice");
}

} // namespace phone::macho
