#include "tests/package/Armv7Processor.h"

#include <algorithm>

namespace package {

namespace {

constexpr std::size_t trapSize = 16;
constexpr int registers[] = {UC_ARM_REG_R0, UC_ARM_REG_R1, UC_ARM_REG_R2, UC_ARM_REG_R3};
constexpr std::uint32_t back = 0xe12fff1e; // bx lr

} // namespace

Armv7Processor::Armv7Processor() {
    uc_open(UC_ARCH_ARM, UC_MODE_ARM, &engine);
    uc_mem_map(engine, base, 0x100000, UC_PROT_ALL);
    uc_mem_map(engine, stack, 0x100000, UC_PROT_ALL);
    uc_mem_map(engine, traps, 0x400000, UC_PROT_ALL);
    uc_hook hook = 0;
    uc_hook_add(engine, &hook, UC_HOOK_CODE, reinterpret_cast<void*>(&arrive), this, traps, objects - 1);
}

Armv7Processor::~Armv7Processor() { uc_close(engine); }

void Armv7Processor::load(Address place, const std::string& bytes) {
    uc_mem_write(engine, loaded(place), bytes.data(), bytes.size());
}

void Armv7Processor::rebase(Address place) { setWord(loaded(place), word(loaded(place)) + base); }

void Armv7Processor::bind(Address place, const std::string& name) { setWord(loaded(place), symbol(name)); }

Armv7Processor::Address Armv7Processor::symbol(const std::string& name) {
    const auto known = std::ranges::find(symbols, name);
    const auto index = static_cast<Address>(known - symbols.begin());
    const Address place = traps + index * trapSize;
    if (known == symbols.end()) {
        symbols.push_back(name);
        setWord(place, back);
    }
    return place;
}

Armv7Processor::Address Armv7Processor::object(const std::string& name) {
    const Address place = objects + static_cast<Address>(names.size() * trapSize);
    names[place] = name;
    return place;
}

std::string Armv7Processor::nameOf(Address object) const {
    const auto found = names.find(object);
    return found == names.end() ? "" : found->second;
}

bool Armv7Processor::call(Address address, std::array<Address, 4> arguments) {
    const Address top = stack + 0xf0000;
    uc_reg_write(engine, UC_ARM_REG_SP, &top);
    uc_reg_write(engine, UC_ARM_REG_LR, &end);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        uc_reg_write(engine, registers[i], &arguments[i]);
    }
    Address stopped = 0;
    const uc_err error = uc_emu_start(engine, address, end, 0, instructions);
    uc_reg_read(engine, UC_ARM_REG_PC, &stopped);
    return error == UC_ERR_OK && stopped == end;
}

Armv7Processor::Address Armv7Processor::argument(int index) const {
    Address value = 0;
    uc_reg_read(engine, registers[index], &value);
    return value;
}

Armv7Processor::Address Armv7Processor::word(Address address) const {
    Address value = 0;
    uc_mem_read(engine, address, &value, sizeof value);
    return value;
}

void Armv7Processor::setWord(Address address, Address value) { uc_mem_write(engine, address, &value, sizeof value); }

std::string Armv7Processor::text(Address address) const {
    std::string found;
    for (char c = 0; uc_mem_read(engine, address + static_cast<Address>(found.size()), &c, 1) == UC_ERR_OK && c != 0;) {
        found += c;
    }
    return found;
}

void Armv7Processor::arrive(uc_engine* engine, std::uint64_t address, std::uint32_t, void* processor) {
    auto& self = *static_cast<Armv7Processor*>(processor);
    const std::size_t index = (address - traps) / trapSize;
    if (index >= self.symbols.size() || (address - traps) % trapSize != 0) {
        uc_emu_stop(engine);
        return;
    }
    const auto function = self.functions.find(self.symbols[index]);
    const Address result = function == self.functions.end() ? 0 : function->second();
    uc_reg_write(engine, UC_ARM_REG_R0, &result);
}

} // namespace package
