#include "document/rtf/RtfReader.h"
#include "tests/support/RichTextInvariants.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const quillshift::RichText rich = quillshift::ReadRtf({reinterpret_cast<const char*>(data), size});
    const std::string fault = quillshift::RichTextFault(rich);
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        std::abort();
    }
    return 0;
}
