#include "support/TestProgram.h"

namespace quillshift {

// Here, so that the program is put together once and not in each file that tries it.
TestProgram::TestProgram(FileSystem* other)
    : FakePlatform(other), program{platform, window, toolkit, [this](ProgramParts& parts) {
                                       auto made = std::make_unique<FakeDialogs>(parts);
                                       dialogs = made.get();
                                       return made;
                                   }} {}

TestProgram::~TestProgram() = default;

} // namespace quillshift
