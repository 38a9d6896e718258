#include "document/rtf/RtfTables.h"

#include "document/rtf/RtfCodePages.h"

#include <algorithm>

namespace quillshift {

void RtfFontTable::Begin(int number, int defaultPage) {
    if (fonts_.size() >= kMostFonts && !fonts_.contains(number)) {
        current_ = nullptr;
        return;
    }
    current_ = &fonts_[number];
    *current_ = {.name = {}, .codePage = defaultPage};
}

void RtfFontTable::SetCharset(int charset, int defaultPage) {
    if (current_)
        current_->codePage = CodePageOfCharset(charset, defaultPage);
}

void RtfFontTable::AddName(std::string_view bytes) {
    if (!current_ || current_->complete)
        return;
    const std::size_t end = bytes.find(';');
    if (current_->name.size() < kLongestName)
        AppendDecoded(current_->name, bytes.substr(0, std::min(end, kLongestName)), current_->codePage);
    current_->complete = end != std::string_view::npos;
}

std::u16string_view RtfFontTable::Name(int number) const {
    const auto found = fonts_.find(number);
    return found == fonts_.end() ? std::u16string_view() : std::u16string_view(found->second.name);
}

int RtfFontTable::CodePage(int number, int defaultPage) const {
    const auto found = fonts_.find(number);
    return found == fonts_.end() ? defaultPage : found->second.codePage;
}

std::uint8_t RtfColourTable::Part(int value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

Colour& RtfColourTable::Open() {
    return open_ ? *open_ : open_.emplace();
}

void RtfColourTable::AddSeparators(std::string_view bytes) {
    for (const char byte : bytes) {
        if (byte != ';' || colours_.size() >= kMostColours)
            continue;
        colours_.push_back(open_);
        open_.reset();
    }
}

std::optional<Colour> RtfColourTable::Find(int number) const {
    if (number < 0 || static_cast<std::size_t>(number) >= colours_.size())
        return std::nullopt;
    return colours_[static_cast<std::size_t>(number)];
}

} // namespace quillshift
