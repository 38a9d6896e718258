#include "wizard/detect/LineRepair.h"
#include "wizard/detect/Pieces.h"

#include <cstdint>
#include <cstdlib>

// What comes in two pieces must become what it becomes in one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quillshift::wizard;
    if (size < 2)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const std::string_view first = bytes.substr(0, size * data[0] / 256);
    for (const Debris debris : {Debris::QuotedPrintable, Debris::Base64, Debris::EncodedWords,
                                Debris::Entities, Debris::Escapes, Debris::Percent}) {
        const std::size_t end = WholePieces(debris, first);
        const std::string apart =
            UndoDebris(debris, bytes.substr(0, end)) + UndoDebris(debris, bytes.substr(end));
        const bool isSame =
            debris == Debris::EncodedWords || apart == UndoDebris(debris, bytes); // broken words run on
        if (end > first.size() || !isSame)
            std::abort();
    }
    for (const Set set : {Set::Koi8R, Set::Utf8, Set::Utf16Le, Set::Utf16Be}) {
        const std::size_t end = WholeLines({set, {}}, first);
        std::size_t lost = 0;
        const std::string apart =
            Decode(set, bytes.substr(0, end), lost) + Decode(set, bytes.substr(end), lost);
        if (end > first.size() || apart != Decode(set, bytes, lost))
            std::abort();
    }
    const Verdict verdict = Detect(bytes);
    LineRepair whole(bytes, verdict, {}), pieces(bytes, verdict, {});
    std::string once, twice;
    const std::size_t end = WholeLines({}, first);
    whole.Add(bytes, once);
    pieces.Add(bytes.substr(0, end), twice);
    pieces.Add(bytes.substr(end), twice);
    if (once != twice || whole.Unsure() != pieces.Unsure() || whole.Apart() != pieces.Apart())
        std::abort();
    return 0;
}
