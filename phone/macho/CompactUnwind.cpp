#include "phone/macho/CompactUnwind.h"

#include "phone/macho/FrameEncoding.h"

#include <utility>

namespace phone::macho {

namespace {

constexpr const char* what = "the unwind tables";

/// Reads the pages and turns their beginnings of functions into ranges.
class TableReader {
public:
    TableReader(const Bytes& table, std::uint64_t textAddress, std::uint32_t processor)
        : _table(table), _text(textAddress), _processor(processor) {}

    std::vector<UnwindEntry> read() {
        _header = _table.at<UnwindHeader>(0, what);
        if (_header.version != 1) {
            throw Refusal(std::string(what) + " are of version " + std::to_string(_header.version));
        }
        const Bytes index =
            _table.part(_header.index, _header.indexCount * std::uint64_t{sizeof(UnwindIndexEntry)}, what);
        for (std::uint32_t i = 0; i < _header.indexCount; ++i) {
            const auto page = index.at<UnwindIndexEntry>(i * sizeof(UnwindIndexEntry), what);
            if (page.page != 0) {
                readPage(page);
            } else {
                begin(page.function, 0); // the end of the last function
            }
        }
        if (_open.encoding != 0) {
            throw Refusal(std::string(what) + " do not end");
        }
        return std::move(_entries);
    }

private:
    void readPage(const UnwindIndexEntry& entry) {
        const auto kind = _table.at<std::uint32_t>(entry.page, what);
        const auto page = _table.part(entry.page, _table.size() - entry.page, what);
        if (kind == regularUnwindPage) {
            const auto header = page.at<RegularUnwindPage>(0, what);
            for (std::uint64_t i = 0; i < header.entryCount; ++i) {
                const auto function = page.at<UnwindPageEntry>(header.entries + i * sizeof(UnwindPageEntry), what);
                begin(function.function, function.encoding);
            }
        } else if (kind == compressedUnwindPage) {
            const auto header = page.at<CompressedUnwindPage>(0, what);
            for (std::uint64_t i = 0; i < header.entryCount; ++i) {
                const auto both = page.at<std::uint32_t>(header.entries + i * sizeof(std::uint32_t), what);
                begin(entry.function + (both & 0xffffff), encoding(page, header, both >> 24));
            }
        } else {
            throw Refusal(std::string(what) + " hold an unknown page");
        }
    }

    /// The encodings that all pages share come first, the page's own after them.
    std::uint32_t encoding(const Bytes& page, const CompressedUnwindPage& header, std::uint32_t number) const {
        if (number < _header.commonEncodingCount) {
            return _table.at<std::uint32_t>(_header.commonEncodings + std::uint64_t{number} * 4, what);
        }
        const std::uint32_t own = number - _header.commonEncodingCount;
        if (own >= header.encodingCount) {
            throw Refusal(std::string(what) + " name an encoding that there is not");
        }
        return page.at<std::uint32_t>(header.encodings + std::uint64_t{own} * 4, what);
    }

    /// A function begins, and the one before ends.
    void begin(std::uint64_t offset, std::uint32_t encoding) {
        const std::uint64_t address = _text + offset;
        if (address < _open.start) {
            throw Refusal(std::string(what) + " are in disorder");
        }
        if (_open.encoding != 0 && address > _open.start) {
            (void)decodeFrame(_open.encoding, _processor);
            _open.end = address;
            _entries.push_back(_open);
        }
        _open = {address, 0, encoding};
    }

    const Bytes& _table;
    std::uint64_t _text;
    std::uint32_t _processor;
    UnwindHeader _header{};
    UnwindEntry _open;
    std::vector<UnwindEntry> _entries;
};

/// Writes the records of DWARF's frame descriptions.
class FrameWriter {
public:
    explicit FrameWriter(std::uint32_t processor) : _processor(processor) {}

    /// What all functions have in common at their beginning.
    void writeCommon() {
        begin();
        number(0, 4);
        byte(1); // version
        for (const char c : {'z', 'R', '\0'}) {
            byte(static_cast<std::uint8_t>(c));
        }
        byte(1);    // code is counted in bytes,
        byte(0x78); // data in words downwards (-8)
        byte(returnAddressColumn(_processor));
        byte(1); // one byte follows:
        byte(0); // addresses are absolute
        end();
    }

    void write(const UnwindEntry& entry, std::uint64_t slide) {
        begin();
        number(_bytes.size(), 4); // back to the common part, which is at the very beginning
        number(entry.start + slide, 8);
        number(entry.end - entry.start, 8);
        byte(0);
        const Frame frame = decodeFrame(entry.encoding, _processor);
        byte(0x0c); // the caller's stack pointer: a register and so many bytes
        byte(frame.base);
        shortened(frame.bytes);
        for (const SavedRegister& saved : frame.saved) {
            write(saved);
        }
        end();
    }

    std::vector<std::uint8_t> finish() {
        number(0, 4);
        return std::move(_bytes);
    }

private:
    void begin() {
        _start = _bytes.size();
        number(0, 4);
    }
    void end() {
        while ((_bytes.size() - _start) % 8 != 0) {
            byte(0); // an instruction that does nothing
        }
        const auto length = static_cast<std::uint32_t>(_bytes.size() - _start - 4);
        std::memcpy(_bytes.data() + _start, &length, sizeof(length));
    }
    void byte(std::uint8_t value) { _bytes.push_back(value); }
    void number(std::uint64_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) {
            byte(static_cast<std::uint8_t>(value >> (8 * i)));
        }
    }
    /// Seven bits a byte, the lowest first.
    void shortened(std::uint32_t value) {
        for (; value >= 0x80; value >>= 7) {
            byte(static_cast<std::uint8_t>(value | 0x80));
        }
        byte(static_cast<std::uint8_t>(value));
    }
    void write(const SavedRegister& saved) {
        constexpr std::uint8_t numbersInInstruction = 64;
        if (saved.number < numbersInInstruction) {
            byte(0x80 | saved.number);
        } else {
            byte(0x05); // its number on its own
            shortened(saved.number);
        }
        shortened(saved.words);
    }

    std::uint32_t _processor;
    std::vector<std::uint8_t> _bytes;
    std::size_t _start = 0;
};

} // namespace

std::vector<UnwindEntry> readCompactUnwind(const Bytes& table, std::uint64_t textAddress, std::uint32_t processor) {
    return TableReader(table, textAddress, processor).read();
}

std::vector<std::uint8_t> frameDescriptions(const std::vector<UnwindEntry>& entries, std::uint64_t slide,
                                            std::uint32_t processor) {
    FrameWriter writer(processor);
    writer.writeCommon();
    for (const UnwindEntry& entry : entries) {
        writer.write(entry, slide);
    }
    return writer.finish();
}

} // namespace phone::macho
