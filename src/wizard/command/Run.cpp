#include "wizard/command/Run.h"

#include "wizard/command/Options.h"
#include "wizard/command/Report.h"
#include "wizard/detect/Repair.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace quillshift::wizard {

namespace {

constexpr int fine = 0, unsure = 1, trouble = 2;

std::optional<std::string> ReadAll(std::istream& in) {
    std::string bytes(std::istreambuf_iterator<char>(in), {});
    return in.bad() ? std::nullopt : std::optional(std::move(bytes));
}

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

class Command {
public:
    Command(const Options& options, std::istream& in, std::ostream& out, std::ostream& err, Language language)
        : options_(options), in_(in), out_(out), err_(err), language_(language) {}

    int Filter() {
        const auto bytes = ReadAll(in_);
        if (!bytes)
            return Fail("-", Word::CannotRead);
        const Repaired repaired = options_.from
                                      ? UndoGiven(*bytes)
                                      : Repair(*bytes, Detect(*bytes, options_.detect), options_.detect);
        if (!repaired.changed) {
            out_ << *bytes;
        } else if (!Write(repaired.text, *bytes)) {
            out_ << *bytes;
            return Fail("-", Word::NotRepresentable);
        }
        if (repaired.unsure == 0)
            return fine;
        err_ << "quillshift-wizard: " << Say(Word::LeftUnsure, language_) << '\n';
        return unsure;
    }

    int Tell(const std::string& name) {
        if (name == "-")
            return TellBytes(name, ReadAll(in_));
        std::error_code error;
        if (std::filesystem::is_directory(name, error))
            return Fail(name, Word::Folder);
        std::ifstream file(name, std::ios::binary);
        return TellBytes(name, file ? ReadAll(file) : std::nullopt);
    }

    int TellAll() {
        std::vector<std::string> files = options_.files;
        if (!options_.filesFrom.empty() && !AddNames(files))
            return Fail(options_.filesFrom, Word::CannotRead);
        if (files.empty() && options_.filesFrom.empty())
            files.emplace_back("-");
        int status = fine;
        for (const std::string& file : files)
            status = std::max(status, Tell(file));
        return status;
    }

private:
    int Fail(std::string_view name, Word word) {
        err_ << "quillshift-wizard: " << name << ": " << Say(word, language_) << '\n';
        return trouble;
    }

    Repaired UndoGiven(std::string_view bytes) {
        Undone undone = Undo(*options_.from, bytes);
        if (undone.lost > 0)
            err_ << "quillshift-wizard: " << undone.lost << ' ' << Say(Word::Lost, language_) << '\n';
        return {std::move(undone.text), true, undone.lost > 0 ? 1U : 0U};
    }

    bool Write(const std::string& text, const std::string& bytes) {
        Set set = options_.target == Target::Windows1251 ? Set::Windows1251 : Set::Utf8;
        if (options_.target == Target::Keep)
            set = options_.from ? options_.from->stored
                                : Detect(bytes, options_.detect).candidates.front().chain.stored;
        const std::string_view declared = set == Set::Windows1251 ? "windows-1251" : "utf-8";
        const auto written = Encode(set, options_.target == Target::Keep ? text : Redeclare(text, declared));
        if (written)
            out_ << *written;
        return written.has_value();
    }

    int TellBytes(const std::string& name, const std::optional<std::string>& bytes) {
        if (!bytes)
            return Fail(name, Word::CannotRead);
        const Verdict verdict = Detect(*bytes, options_.detect);
        out_ << (options_.json                 ? Json(name, verdict)
                 : options_.task == Task::List ? Listing(name, verdict, language_)
                                               : Line(name, verdict, language_));
        return verdict.answer == Answer::Unsure ? unsure : fine;
    }

    bool AddNames(std::vector<std::string>& files) {
        std::ifstream file;
        if (options_.filesFrom != "-")
            file.open(options_.filesFrom, std::ios::binary);
        std::istream& names = options_.filesFrom == "-" ? in_ : file;
        if (!names)
            return false;
        for (std::string name; std::getline(names, name, options_.separator);)
            if (!name.empty())
                files.push_back(name);
        return true;
    }

    const Options& options_;
    std::istream& in_;
    std::ostream& out_;
    std::ostream& err_;
    Language language_;
};

} // namespace

int Run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err,
        Language language) {
    const Parsed parsed = ParseOptions(arguments);
    if (!parsed.fault.empty()) {
        err << "quillshift-wizard: " << Say(Word::BadArgument, language) << ": " << parsed.fault << '\n';
        return trouble;
    }
    const Options& options = parsed.options;
    if (options.task == Task::Help)
        out << Say(Word::Help, language);
    if (options.task == Task::Version)
        out << "quillshift-wizard " << QUILLSHIFT_VERSION << '\n';
    int status = fine;
    if (options.task != Task::Help && options.task != Task::Version) {
        Command command(options, in, out, err, language);
        const bool filter = options.task == Task::Filter && !options.json && options.files.empty() &&
                            options.filesFrom.empty();
        status = filter ? command.Filter() : command.TellAll();
    }
    out.flush();
    return out ? status : trouble;
}

} // namespace quillshift::wizard
