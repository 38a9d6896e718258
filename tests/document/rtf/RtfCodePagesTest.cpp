#include "document/rtf/RtfCodePages.h"

#include "harness/Iconv.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

TEST(RtfCodePages, AgreeWithThePublishedPages) {
    const std::pair<int, const char*> pages[] = {
        {437, "CP437"},   {850, "CP850"},       {866, "CP866"},         {1250, "CP1250"}, {1252, "CP1252"},
        {1253, "CP1253"}, {1254, "CP1254"},     {1255, "CP1255"},       {1256, "CP1256"}, {1257, "CP1257"},
        {1258, "CP1258"}, {10000, "MACINTOSH"}, {10007, "MAC-CYRILLIC"}};
    for (const auto& [number, name] : pages)
        for (int byte = 0x80; byte < 0x100; ++byte) {
            const char single = static_cast<char>(byte);
            std::u16string read;
            AppendDecoded(read, {&single, 1}, number);
            EXPECT_EQ(read, std::u16string(1, Published(name, static_cast<std::uint8_t>(byte))))
                << name << " byte " << byte;
        }
}

} // namespace
} // namespace quillshift
