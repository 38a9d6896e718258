#pragma once

#include "wizard/detect/Detector.h"

#include <optional>
#include <string>
#include <vector>

namespace quillshift::wizard {

enum class Task { Filter, Detect, List, Help, Version };
enum class Target { Utf8, Windows1251, Keep };

struct Options {
    Task task = Task::Filter;
    Target target = Target::Utf8;
    std::size_t list = 0;      ///< candidates to list
    std::optional<Chain> from; ///< the chain to undo, instead of looking for one
    DetectOptions detect;
    std::string filesFrom; ///< a file of file names; "-" for standard input
    char separator = '\n'; ///< between the names
    bool json = false;
    std::vector<std::string> files;
};

struct Parsed {
    Options options;
    std::string fault; ///< the argument that can't be understood; empty for none
};

Parsed ParseOptions(const std::vector<std::string>& arguments);

} // namespace quillshift::wizard
