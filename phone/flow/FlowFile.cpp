#include "phone/flow/FlowFile.h"

#include "phone/flow/CommandReader.h"
#include "phone/flow/PhoneOptions.h"

#include <filesystem>

namespace phone {

namespace {

PhoneOptions readPhone(const Yaml& node) {
    std::vector<std::string_view> names;
    for (const PhoneOption& option : phoneOptions) {
        names.push_back(option.name);
    }
    const YamlMap keys = node.map("phone", names);
    PhoneOptions options;
    for (const PhoneOption& option : phoneOptions) {
        if (const auto value = keys.find(option.name)) {
            const std::string given = value->text(std::string(option.name));
            if (const auto wrong = option.whatIsWrongWith(given)) {
                value->fail(*wrong);
            }
            options.*option.value = given;
        }
    }
    return options;
}

} // namespace

FlowFile FlowFile::of(const std::vector<Yaml>& documents, const std::string& file) {
    if (documents.size() == 1 && documents.front().isList()) {
        return {std::nullopt, documents.front()};
    }
    if (documents.size() != 2) {
        throw InputError({file, 0}, "is no flow; a flow is a header, a line `---`, and a list of commands");
    }
    if (!documents[1].isList()) {
        documents[1].fail("a list of commands has to stand after `---`");
    }
    return {documents[0], documents[1]};
}

FlowHeader FlowHeader::read(const FlowFile& file) {
    FlowHeader header;
    if (!file.header || file.header->isNull()) {
        return header;
    }
    const YamlMap keys = file.header->map("the header", {"appId", "name", "phone", "env"});
    if (const auto name = keys.find("name")) {
        header.name = name->text("name");
    }
    if (const auto phone = keys.find("phone")) {
        header.phone = readPhone(*phone);
    }
    if (const auto env = keys.find("env")) {
        header.environment = readEnvironment(*env, {});
    }
    return header;
}

Environment readEnvironment(const Yaml& node, const Environment& outer) {
    Environment environment;
    for (const auto& [key, value] : node.pairs("env")) {
        const std::string name = key.text("a name");
        if (!isVariableName(name)) {
            key.fail("`" + name + "` cannot be a name in env; use letters, digits and underscores");
        }
        environment[name] = substituted(value.text(name), outer, value.place());
    }
    return environment;
}

namespace {

Flow flowOf(const FlowFile& parts, const std::string& file) {
    FlowHeader header = FlowHeader::read(parts);
    const std::filesystem::path path(file);
    return {file, header.name.empty() ? path.stem().string() : header.name, std::move(header.phone),
            readCommands(parts.commands, {std::move(header.environment), path.parent_path(), 0})};
}

} // namespace

Flow Flow::read(const std::string& file) { return flowOf(FlowFile::read(file), file); }

Flow Flow::parse(const std::string& text, const std::string& name) {
    return flowOf(FlowFile::of(Yaml::documentsIn(text, name), name), name);
}

std::vector<Command> readFlowCommands(const std::string& file, const CommandScope& scope, const Environment& given) {
    const FlowFile parts = FlowFile::read(file);
    // Nearest first: what is given with runFlow, the file's own header, the flow around.
    Environment environment = given;
    environment.merge(FlowHeader::read(parts).environment);
    environment.merge(Environment(scope.environment));
    return readCommands(parts.commands,
                        {std::move(environment), std::filesystem::path(file).parent_path(), scope.depth});
}

} // namespace phone
