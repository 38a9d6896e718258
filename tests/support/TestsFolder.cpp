#include "support/TestsFolder.h"

namespace quillshift {

std::filesystem::path TestsFolder() {
    return TESTS_FOLDER;
}

} // namespace quillshift
