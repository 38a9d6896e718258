#include "wizard/command/Run.h"

#include "wizard/command/Folders.h"
#include "wizard/command/Options.h"
#include "wizard/command/Report.h"
#include "wizard/detect/Repair.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>

namespace quillshift::wizard {

namespace {

std::optional<std::string> ReadAll(std::istream& in) {
    std::string bytes(std::istreambuf_iterator<char>(in), {});
    return in.bad() ? std::nullopt : std::optional(std::move(bytes));
}

class Command {
public:
    Command(const Options& options, std::istream& in, const Talk& talk)
        : options_(options), in_(in), talk_(talk) {}

    int Filter() {
        const auto bytes = ReadAll(in_);
        if (!bytes)
            return talk_.Fail("-", Word::CannotRead);
        const Repaired repaired = options_.from
                                      ? UndoGiven(*bytes)
                                      : Repair(*bytes, Detect(*bytes, options_.detect), options_.detect);
        if (!repaired.changed) {
            talk_.out << *bytes;
        } else if (!Write(repaired.text, *bytes)) {
            talk_.out << *bytes;
            return talk_.Fail("-", Word::NotRepresentable);
        }
        if (repaired.apart > 0)
            Tell(Word::LinesApart);
        if (repaired.unsure > 0)
            Tell(Word::LeftUnsure);
        return repaired.apart + repaired.unsure > 0 ? unsure : fine;
    }

    int Tell() {
        std::vector<std::string> names = options_.files;
        if (!options_.filesFrom.empty() && !AddNames(names))
            return talk_.Fail(options_.filesFrom, Word::CannotRead);
        if (options_.task == Task::Write)
            return WriteFiles(names, options_, talk_);
        const bool takesInput =
            std::ranges::find(names, "-") != names.end() || (names.empty() && options_.filesFrom.empty());
        std::erase(names, "-");
        const int status = takesInput ? TellBytes("-", ReadAll(in_)) : fine;
        return std::max(status, TellFiles(names, options_, talk_));
    }

private:
    void Tell(Word word) const { talk_.err << "quillshift-wizard: " << Say(word, talk_.language) << '\n'; }

    Repaired UndoGiven(std::string_view bytes) {
        Undone undone = Undo(*options_.from, bytes);
        if (undone.lost > 0)
            talk_.err << "quillshift-wizard: " << undone.lost << ' ' << Say(Word::Lost, talk_.language)
                      << '\n';
        return {std::move(undone.text), true, undone.lost > 0 ? 1U : 0U};
    }

    bool Write(const std::string& text, const std::string& bytes) {
        const Set stored = options_.from ? options_.from->stored
                           : options_.target == Target::Keep
                               ? Detect(bytes, options_.detect).candidates.front().chain.stored
                               : Set::Utf8;
        const auto written = Output(text, options_.target, stored);
        if (written)
            talk_.out << *written;
        return written.has_value();
    }

    int TellBytes(const std::string& name, const std::optional<std::string>& bytes) {
        if (!bytes)
            return talk_.Fail(name, Word::CannotRead);
        const Verdict verdict = Detect(*bytes, options_.detect);
        talk_.out << (options_.json                 ? Json(name, verdict)
                      : options_.task == Task::List ? Listing(name, verdict, talk_.language)
                                                    : Line(name, verdict, talk_.language));
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
    const Talk& talk_;
};

} // namespace

int Run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err,
        Language language, bool errIsTerminal) {
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
    const Talk talk{out, err, language, errIsTerminal};
    int status = fine;
    if (options.task == Task::Undo) {
        status = UndoRepairs(options.report, talk);
    } else if (options.task != Task::Help && options.task != Task::Version) {
        Command command(options, in, talk);
        const bool filter = options.task == Task::Filter && !options.json && options.files.empty() &&
                            options.filesFrom.empty();
        status = filter ? command.Filter() : command.Tell();
    }
    out.flush();
    return out ? status : trouble;
}

} // namespace quillshift::wizard
