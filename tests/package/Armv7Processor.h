/// Runs a slice for armv7: what it calls of the platform arrives in functions of the test.
#pragma once

#include <unicorn/unicorn.h>

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace package {

class Armv7Processor {
public:
    using Address = std::uint32_t;
    /// A platform's function; gives its result.
    using Function = std::function<Address()>;

    /// How long the slice's functions may run.
    static constexpr std::size_t instructions = 10'000'000;

    Armv7Processor();
    ~Armv7Processor();
    Armv7Processor(const Armv7Processor&) = delete;
    Armv7Processor& operator=(const Armv7Processor&) = delete;

    /// Puts bytes where the slice wants them, moved by where it is loaded.
    void load(Address place, const std::string& bytes);
    /// Makes a pointer of the slice follow where it is loaded.
    void rebase(Address place);
    /// Makes a pointer of the slice lead to a symbol of the platform.
    void bind(Address place, const std::string& symbol);

    void answer(const std::string& symbol, Function function) { functions[symbol] = std::move(function); }
    /// Calls an address, with a set lowest bit for Thumb; false when it does not come back.
    bool call(Address address, std::array<Address, 4> arguments = {});

    /// Something of the platform's, known by a name.
    Address object(const std::string& name);
    std::string nameOf(Address object) const;
    /// Where a symbol of the platform lies.
    Address symbol(const std::string& name);

    Address argument(int index) const;
    Address word(Address address) const;
    void setWord(Address address, Address value);
    std::string text(Address address) const;
    /// Where a place of the slice is loaded.
    static Address loaded(Address place) { return base + place; }

private:
    static constexpr Address base = 0x10000;
    static constexpr Address stack = 0x800000;
    static constexpr Address traps = 0x1000000;
    static constexpr Address objects = 0x1200000;
    static constexpr Address end = 0x13ff000;

    static void arrive(uc_engine* engine, std::uint64_t address, std::uint32_t size, void* processor);

    uc_engine* engine = nullptr;
    std::vector<std::string> symbols;
    std::map<Address, std::string> names;
    std::map<std::string, Function> functions;
};

} // namespace package
