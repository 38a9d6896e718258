#include "wizard/command/DescriptorInput.h"
#include "wizard/command/Run.h"

#include <iostream>
#include <unistd.h>

int main(int argc, char** argv) {
    using namespace quillshift::wizard;
    std::ios::sync_with_stdio(false);
    EnlargePipe(STDIN_FILENO);
    EnlargePipe(STDOUT_FILENO);
    DescriptorInput input(STDIN_FILENO);
    std::istream in(&input);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return Run(arguments, in, std::cout, std::cerr, LanguageOfLocale(), isatty(STDERR_FILENO) == 1);
}
