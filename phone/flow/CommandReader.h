/// Makes commands of a flow's list, checking everything that can be checked before anything runs.
#pragma once

#include "phone/flow/Flow.h"
#include "phone/flow/Substitution.h"
#include "phone/flow/Yaml.h"

#include <filesystem>

namespace phone {

/// Where commands stand: what their texts and file names are relative to.
struct CommandScope {
    Environment environment;
    std::filesystem::path folder; // of the flow's file
    int depth = 0;                // of runFlow and repeat around the commands
};

/// Throws InputError at the first command that is wrong.
std::vector<Command> readCommands(const Yaml& list, const CommandScope& scope);

/// The commands of a flow that another flow runs; values given there go before its own header's.
std::vector<Command> readFlowCommands(const std::string& file, const CommandScope& scope, const Environment& given);

} // namespace phone
