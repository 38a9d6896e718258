#include "document/RecoveredTexts.h"

#include "base/Utf8.h"

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

constexpr std::size_t kShownCharacters = 100;

std::u16string FirstLine(std::u16string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(u" \t\r\n"), text.size());
    std::u16string_view line = text.substr(begin, text.find(u'\r', begin) - begin);
    if (line.size() <= kShownCharacters)
        return std::u16string(line);
    const char16_t last = line[kShownCharacters - 1];
    line = line.substr(0, kShownCharacters - (last >= 0xD800 && last < 0xDC00 ? 1 : 0));
    return std::u16string(line) + u'…';
}

} // namespace

bool RecoveredTexts::Find() {
    for (LeftFile& file : services_.store.FindLeft()) {
        auto text = ReadRecoveryFile(file.bytes);
        if (text)
            left_.push_back({std::move(file), std::move(*text)});
        else
            damaged_.push_back(file.name);
    }
    std::ranges::stable_sort(left_, std::ranges::greater(), [](const Left& left) { return left.file.time; });
    return !left_.empty() || !damaged_.empty();
}

void RecoveredTexts::TellOfDamaged() {
    for (const std::string& name : std::exchange(damaged_, {}))
        services_.messageBox.Warn(
            u"Файл с несохраненным текстом поврежден, и текст из него не загружен. Файл остается здесь:\r\n" +
            services_.store.PutAway(name));
}

RecoveredTexts::Entry RecoveredTexts::At(std::size_t index) const {
    const auto& [file, left] = left_[index];
    if (left.place.isLocked)
        return {.name = u"(скрыт)",
                .path = {},
                .time = file.time,
                .firstLine = u"(программа была заблокирована)"};
    const std::u16string& path = left.place.path;
    return {.name = path.empty() ? u"Без имени" : path.substr(path.rfind(u'/') + 1),
            .path = path,
            .time = file.time,
            .firstLine = FirstLine(left.text)};
}

bool RecoveredTexts::Restore(std::size_t index) {
    const auto& [file, left] = left_[index];
    if (left.place.isLocked && !(MaySeeLocked && MaySeeLocked()))
        return false;
    services_.documents.Restore(left);
    services_.recovery.Restored(file.name);
    hasRestored_ = true;
    if (left.place.isRich)
        services_.messageBox.Inform(u"Восстановлен только текст, без оформления.");
    left_.erase(left_.begin() + static_cast<std::ptrdiff_t>(index));
    return true;
}

bool RecoveredTexts::ThrowAway(std::size_t index) {
    const LeftFile& file = left_[index].file;
    if (const auto failure = services_.store.PutIntoTrash(file)) {
        services_.messageBox.Report(FileError(*failure, FromUtf8(file.name)));
        return false;
    }
    left_.erase(left_.begin() + static_cast<std::ptrdiff_t>(index));
    return true;
}

// A text that was taken is this copy's before others may look for it.
void RecoveredTexts::Release() {
    if (hasRestored_)
        services_.store.Finish();
    left_.clear();
    services_.store.Release();
}

} // namespace quillshift
