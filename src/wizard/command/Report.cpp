#include "wizard/command/Report.h"

#include <algorithm>
#include <cstdio>
#include <span>

namespace quillshift::wizard {

namespace {

constexpr std::size_t previewCharacters = 60;

Word WordOf(Answer answer) {
    return answer == Answer::Clean ? Word::Clean : answer == Answer::Sure ? Word::Sure : Word::Unsure;
}

std::string Number(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", number);
    return text;
}

/// The beginning on one line; control characters become blanks.
std::string Beginning(std::string_view text) {
    std::string line;
    std::size_t at = 0;
    for (std::size_t count = 0; at < text.size() && count < previewCharacters; ++count) {
        const std::int32_t character = NextUtf8(text, at);
        const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
        AppendUtf8(line, control ? ' ' : static_cast<std::uint32_t>(character));
    }
    return line;
}

std::string NameOfChain(const Candidate& candidate, Language language) {
    return candidate.language == "binary" ? std::string(Say(Word::Binary, language))
                                          : ToString(candidate.chain);
}

/// A JSON string; bytes that are no UTF-8 become U+FFFD.
std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::int32_t character = NextUtf8(text, at);
        if (character == '"' || character == '\\') {
            quoted += '\\';
            quoted += static_cast<char>(character);
        } else if (character >= 0 && character < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(character));
            quoted += escape;
        } else {
            AppendUtf8(quoted, character < 0 ? lostMark : static_cast<std::uint32_t>(character));
        }
    }
    return quoted + '"';
}

} // namespace

std::string Line(std::string_view name, const Verdict& verdict, Language language) {
    std::string line = Shown(name);
    line.append(": ").append(Say(WordOf(verdict.answer), language));
    if (!verdict.candidates.empty())
        line.append(", ").append(NameOfChain(verdict.candidates.front(), language));
    if (!verdict.candidates.empty() && verdict.candidates.front().lost > 0)
        line.append(", ")
            .append(std::to_string(verdict.candidates.front().lost))
            .append(" ")
            .append(Say(Word::Lost, language));
    return line + '\n';
}

std::string Line(const Finding& finding, Language language) {
    std::string line = Line(finding.path, finding.verdict, language);
    if (finding.isBorrowed)
        line = Shown(finding.path) + ": " + std::string(Say(Word::Sure, language)) + ", " +
               ToString(*finding.chain) + ", " + std::string(Say(Word::Borrowed, language)) + '\n';
    if (finding.hasOtherNames && finding.chain)
        line.insert(line.size() - 1, ", " + std::string(Say(Word::OtherNames, language)));
    return line;
}

std::string Readings(const Verdict& verdict, std::size_t most, Language language) {
    std::string lines;
    for (const Candidate& candidate :
         std::span(verdict.candidates).first(std::min(most, verdict.candidates.size())))
        lines.append("  ")
            .append(Number(candidate.bits))
            .append("\t")
            .append(NameOfChain(candidate, language))
            .append("\t")
            .append(Beginning(candidate.preview))
            .append("\n");
    return lines;
}

std::string Json(std::string_view name, const Verdict& verdict, const std::optional<Chain>& borrowed) {
    const Answer answer = borrowed ? Answer::Sure : verdict.answer;
    std::string line =
        "{\"name\":" + Quoted(name) + ",\"answer\":" + Quoted(Say(WordOf(answer), Language::English));
    if (borrowed)
        line += ",\"borrowed\":" + Quoted(ToString(*borrowed));
    line += ",\"readings\":[";
    for (const Candidate& candidate : verdict.candidates) {
        line += line.back() == '[' ? "{" : ",{";
        line += "\"chain\":" + Quoted(ToString(candidate.chain)) +
                ",\"leaveAlone\":" + (candidate.leaveAlone ? "true" : "false");
        line += ",\"language\":" + Quoted(candidate.language) + ",\"bits\":" + Number(candidate.bits);
        line += ",\"letters\":" + std::to_string(candidate.letters) +
                ",\"lost\":" + std::to_string(candidate.lost);
        line += ",\"preview\":" + Quoted(Beginning(candidate.preview)) + "}";
    }
    return line + "]}\n";
}

} // namespace quillshift::wizard
