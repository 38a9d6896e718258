#include "support/FakePlatform.h"

namespace quillshift {

// Here, so that the fakes are compiled once and not in each file that uses them.
FakePlatform::FakePlatform(FileSystem* other) : disk(other != nullptr ? *other : files) {}
FakePlatform::~FakePlatform() = default;

} // namespace quillshift
