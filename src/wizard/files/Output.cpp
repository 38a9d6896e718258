#include "wizard/files/Output.h"

namespace quillshift::wizard {

namespace {

/// The charset that HTML or XML declares in its head becomes the one the text is written in.
std::string Redeclare(std::string text, std::string_view set) {
    constexpr std::size_t headBytes = 1024;
    for (const std::string_view key : {"charset=", "encoding="}) {
        const std::size_t at = text.substr(0, headBytes).find(key);
        const std::size_t tag = at == text.npos ? at : text.rfind('<', at);
        if (tag == text.npos || text.find('>', tag) < at)
            continue;
        std::size_t start = at + key.size();
        start += start < text.size() && (text[start] == '"' || text[start] == '\'');
        const std::size_t end = text.find_first_of("\"' />?;", start);
        if (end != text.npos)
            text.replace(start, end - start, set);
    }
    return text;
}

} // namespace

Set SetOf(Target target, Set stored) {
    return target == Target::Keep ? stored : target == Target::Windows1251 ? Set::Windows1251 : Set::Utf8;
}

std::optional<std::string> Output(const std::string& text, Target target, Set stored) {
    const Set set = SetOf(target, stored);
    if (target == Target::Keep)
        return Encode(set, text);
    return Encode(set, Redeclare(text, set == Set::Windows1251 ? "windows-1251" : "utf-8"));
}

} // namespace quillshift::wizard
