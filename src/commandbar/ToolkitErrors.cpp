#include "commandbar/ToolkitErrors.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace quillshift {
namespace {

struct Row {
    ToolkitFailure failure;
    std::uint32_t number;
    std::u16string_view description;
};

constexpr std::uint32_t kBase = 0x80040000U;
constexpr auto kTable = std::to_array<Row>({
    {ToolkitFailure::Unloaded, 364, u"Object has been unloaded."},
    {ToolkitFailure::NoControl, 0x800462AEU, u"Owning qsCommandBar Control does not exist."},
    {ToolkitFailure::NoSuchItem, 0x800462AFU, u"Item does not exist."},
    {ToolkitFailure::TypeMismatch, 13, u"Type Mismatch."},
    {ToolkitFailure::KeyInUse, 457, u"This key is already associated with an element of this collection."},
    {ToolkitFailure::SubscriptOutOfRange, 9, u"Subscript out of range."},
    {ToolkitFailure::AddFailed, 0x800462B3U, u"Failed to add the item"},
    {ToolkitFailure::NothingSet, 91, u"Object variable or With block variable not set."},
});

// Takes characters off the front of a text.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    std::size_t Skip(std::string_view characters) {
        const std::size_t length = std::min(rest_.find_first_not_of(characters), rest_.size());
        rest_.remove_prefix(length);
        return length;
    }
    bool SkipOne(std::string_view characters) {
        const bool found = !rest_.empty() && characters.find(rest_.front()) != std::string_view::npos;
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }
    bool AtEnd() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kDigits = "0123456789";

// Behind the "&" of a hexadecimal or octal number.
bool IsPrefixedNumber(Scanner scanner) {
    if (scanner.SkipOne("hH"))
        return scanner.Skip("0123456789abcdefABCDEF") > 0 && scanner.AtEnd();
    scanner.SkipOne("oO");
    return scanner.Skip("01234567") > 0 && scanner.AtEnd();
}

} // namespace

Error ErrorOf(ToolkitFailure failure) {
    const auto* const row = std::ranges::find(kTable, failure, &Row::failure);
    const bool known = row != kTable.end();
    const std::uint32_t number = known ? row->number : kBase + static_cast<std::uint32_t>(failure);
    return {static_cast<int>(number), u"quillshift.qsPicker",
            std::u16string(known ? row->description : std::u16string_view())};
}

bool IsNumericText(std::string_view text) {
    Scanner scanner(text);
    scanner.Skip(kBlanks);
    if (scanner.SkipOne("&"))
        return IsPrefixedNumber(scanner);
    const bool hasSign = scanner.SkipOne("+-");
    std::size_t digits = scanner.Skip(kDigits);
    while (digits > 0 && scanner.SkipOne(","))
        scanner.Skip(kDigits);
    if (scanner.SkipOne("."))
        digits += scanner.Skip(kDigits);
    if (digits == 0)
        return false;
    if (scanner.SkipOne("eEdD")) {
        scanner.SkipOne("+-");
        if (scanner.Skip(kDigits) == 0)
            return false;
    }
    if (!hasSign)
        scanner.SkipOne("+-");
    scanner.Skip(kBlanks);
    return scanner.AtEnd();
}

} // namespace quillshift
