#pragma once

#include "harness/TemporaryFolder.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

namespace quillshift {

/// Compares what was drawn with the list that is stored under `name` among the tests, line by line. With
/// REDRAW in the environment the list is stored anew instead, and the test is skipped: read what changed
/// before you keep it.
inline void ExpectAsStored(const std::string& name, const std::vector<std::string>& drawn) {
    const std::filesystem::path list = TestsFolder() / name;
    if (std::getenv("REDRAW") != nullptr) {
        std::ofstream file(list);
        for (const std::string& line : drawn)
            file << line << '\n';
        GTEST_SKIP() << "stored anew";
    }
    std::istringstream stored(Contents(list));
    std::string heading;
    std::string expected;
    for (const std::string& line : drawn) {
        if (!std::getline(stored, expected))
            expected = "(the end)";
        if (line.starts_with("-"))
            heading = line;
        ASSERT_EQ(line, expected) << list.filename() << ", under \"" << heading
                                  << "\". If this is meant, see scripts/redraw.sh";
    }
    ASSERT_FALSE(std::getline(stored, expected)) << "no longer drawn: " << expected;
}

} // namespace quillshift
