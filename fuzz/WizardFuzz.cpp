#include "wizard/detect/Repair.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quillshift::wizard;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const Verdict verdict = Detect(bytes);
    const Repaired repaired = Repair(bytes, verdict);
    if (!repaired.changed && repaired.text != bytes)
        std::abort();
    for (const Candidate& candidate : verdict.candidates)
        if (ChainFrom(ToString(candidate.chain)) != candidate.chain)
            std::abort();
    return 0;
}
