#include "wizard/command/Run.h"

#include "wizard/command/Filter.h"
#include "wizard/command/Folders.h"
#include "wizard/command/Options.h"
#include "wizard/command/Report.h"

#include <algorithm>
#include <fstream>
#include <iostream>

namespace quillshift::wizard {

namespace {

class Command {
public:
    Command(const Options& options, std::istream& in, const Talk& talk)
        : options_(options), in_(in), talk_(talk) {}

    int Tell() {
        std::vector<std::string> names = options_.files;
        if (!options_.filesFrom.empty() && !AddNames(names))
            return talk_.Fail(options_.filesFrom, Word::CannotRead);
        if (options_.task == Task::Write)
            return WriteFiles(names, options_, talk_);
        const bool takesInput =
            std::ranges::find(names, "-") != names.end() || (names.empty() && options_.filesFrom.empty());
        std::erase(names, "-");
        const int status = takesInput ? TellBytes("-", Beginning(in_)) : fine;
        return std::max(status, TellFiles(names, options_, talk_));
    }

private:
    int TellBytes(const std::string& name, const std::optional<std::string>& bytes) {
        if (!bytes)
            return talk_.Fail(name, Word::CannotRead);
        const Verdict verdict = Detect(*bytes, options_.detect);
        talk_.out << (options_.json                 ? Json(name, verdict)
                      : options_.task == Task::List ? Line(name, verdict, talk_.language) +
                                                          Readings(verdict, options_.list, talk_.language)
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
        const bool filter = options.task == Task::Filter && !options.json && options.files.empty() &&
                            options.filesFrom.empty();
        status = filter ? Filter(options, in, talk) : Command(options, in, talk).Tell();
    }
    out.flush();
    return out ? status : talk.Fail("-", Word::CannotWrite);
}

} // namespace quillshift::wizard
