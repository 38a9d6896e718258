#include "wizard/command/Options.h"

#include <charconv>

namespace quillshift::wizard {

namespace {

bool SetNumber(std::size_t& number, std::string_view text, std::size_t most) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() && number <= most;
}

bool SetExcluded(std::vector<Set>& sets, std::string_view list) {
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(','), list.size());
        const auto set = SetNamed(list.substr(0, comma));
        if (!set)
            return false;
        sets.push_back(*set);
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return true;
}

bool SetTarget(Target& target, std::string_view text) {
    target = text == "1251" ? Target::Windows1251 : text == "keep" ? Target::Keep : Target::Utf8;
    return text == "utf-8" || text == "1251" || text == "keep";
}

bool TakesValue(std::string_view name) {
    for (const std::string_view known :
         {"--to", "--list", "--from", "--depth", "--exclude", "--files-from", "--report", "--undo"})
        if (name == known)
            return true;
    return false;
}

bool SetValue(Options& options, std::string_view name, const std::string& value) {
    if (name == "--to")
        return SetTarget(options.target, value);
    if (name == "--depth")
        return SetNumber(options.detect.depth, value, deepestChain);
    if (name == "--exclude")
        return SetExcluded(options.detect.exclude, value);
    if (name == "--files-from") {
        options.filesFrom = value;
        return !value.empty();
    }
    if (name == "--report" || name == "--undo") {
        options.task = name == "--undo" ? Task::Undo : options.task;
        options.report = value;
        return !value.empty();
    }
    if (name == "--from") {
        options.from = ChainFrom(value);
        return options.from.has_value();
    }
    options.task = Task::List;
    const bool valid = SetNumber(options.list, value, 50) && options.list > 0;
    options.detect.candidates = options.list;
    return valid;
}

bool SetFlag(Options& options, std::string_view name) {
    if (name == "--detect")
        options.task = Task::Detect;
    else if (name == "--write")
        options.task = Task::Write;
    else if (name == "--json")
        options.json = true;
    else if (name == "-0")
        options.separator = '\0';
    else if (name == "--help")
        options.task = Task::Help;
    else if (name == "--version")
        options.task = Task::Version;
    else
        return false;
    return true;
}

} // namespace

Parsed ParseOptions(const std::vector<std::string>& arguments) {
    Parsed parsed;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < arguments.size() && parsed.fault.empty(); ++i) {
        const std::string& argument = arguments[i];
        const std::size_t equals = argument.starts_with("--") ? argument.find('=') : argument.npos;
        const std::string name = argument.substr(0, equals);
        if (onlyFiles || argument == "-" || !argument.starts_with("-")) {
            parsed.options.files.push_back(argument);
        } else if (argument == "--") {
            onlyFiles = true;
        } else if (TakesValue(name)) {
            const bool apart = equals == argument.npos;
            if ((apart && i + 1 == arguments.size()) ||
                !SetValue(parsed.options, name, apart ? arguments[i + 1] : argument.substr(equals + 1)))
                parsed.fault = apart && i + 1 < arguments.size() ? name + " " + arguments[i + 1] : argument;
            i += apart ? 1 : 0;
        } else if (!SetFlag(parsed.options, argument)) {
            parsed.fault = argument;
        }
    }
    return parsed;
}

} // namespace quillshift::wizard
