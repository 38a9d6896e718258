#pragma once

#include "wizard/detect/Detector.h"
#include "wizard/files/Output.h"

#include <optional>
#include <string>
#include <vector>

namespace quillshift::wizard {

enum class Task { Filter, Detect, List, Write, Undo, Help, Version };

struct Options {
    Task task = Task::Filter;
    Target target = Target::Utf8;
    std::size_t list = 0;      ///< candidates to list
    std::optional<Chain> from; ///< the chain to undo, instead of looking for one
    DetectOptions detect;
    std::string filesFrom; ///< a file of file names; "-" for standard input
    char separator = '\n'; ///< between the names
    bool json = false;
    std::string report; ///< of repairs: where to write it, or what to undo; empty for a place of its own
    std::vector<std::string> files;
};

struct Parsed {
    Options options;
    std::string fault; ///< the argument that can't be understood; empty for none
};

Parsed ParseOptions(const std::vector<std::string>& arguments);

} // namespace quillshift::wizard
