#include "wizard/command/Run.h"

#include <iostream>
#include <unistd.h>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return quillshift::wizard::Run(arguments, std::cin, std::cout, std::cerr,
                                   quillshift::wizard::LanguageOfLocale(), isatty(STDERR_FILENO) == 1);
}
