#include "wizard/command/Folders.h"

#include "platform/posix/PosixFiles.h"
#include "wizard/command/ProgressLine.h"
#include "wizard/command/Report.h"
#include "wizard/files/Repairs.h"
#include "wizard/files/Walk.h"

#include <algorithm>
#include <filesystem>

namespace quillshift::wizard {

namespace {

std::vector<Finding> LookThrough(const std::vector<std::string>& names, const Options& options,
                                 const Talk& talk, int& status) {
    const Walked walked = Walk(names);
    for (const std::string& name : walked.unreadable)
        status = talk.Fail(name, Word::CannotRead);
    ProgressLine progress(talk, walked.files.size());
    std::vector<Finding> findings = LookAt(walked.files, options.detect, [&](std::size_t done) {
        progress.Show(done);
        return true;
    });
    if (options.from) // decides where nothing else is sure: what is clean would be garbled by it
        for (Finding& one : findings)
            if (one.verdict.answer == Answer::Unsure)
                one.chain = options.from;
    return findings;
}

Word WordOf(Outcome outcome) {
    switch (outcome) {
    case Outcome::Repaired:
        return Word::Repaired;
    case Outcome::LeftAlone:
        return Word::LeftAlone;
    case Outcome::LeftUnsure:
        return Word::LeftUnsure;
    case Outcome::DoesNotFit:
        return Word::DoesNotFit;
    case Outcome::ChangedMeanwhile:
        return Word::ChangedMeanwhile;
    case Outcome::Unreadable:
        return Word::CannotRead;
    case Outcome::Failed:
        break;
    }
    return Word::CannotWrite;
}

int StatusOf(Outcome outcome) {
    const bool isFine = outcome == Outcome::Repaired || outcome == Outcome::LeftAlone;
    const bool isTrouble = outcome == Outcome::Failed || outcome == Outcome::Unreadable;
    return isFine ? fine : isTrouble ? trouble : unsure;
}

/// What the repairs came to, a line for each file that was not simply left alone.
int TellOutcomes(const std::vector<Finding>& findings, const std::vector<Outcome>& outcomes,
                 const Talk& talk) {
    int status = fine;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        status = std::max(status, StatusOf(outcomes[i]));
        if (outcomes[i] == Outcome::LeftAlone)
            continue;
        std::string line = Line(findings[i], talk.language);
        line.insert(line.size() - 1, ": " + std::string(Say(WordOf(outcomes[i]), talk.language)));
        talk.out << line;
    }
    return status;
}

Word WordOf(Returned returned) {
    switch (returned) {
    case Returned::Restored:
        return Word::Restored;
    case Returned::AsBefore:
        return Word::AsBefore;
    case Returned::Changed:
        return Word::ChangedMeanwhile;
    case Returned::Gone:
        return Word::Gone;
    case Returned::NoBackup:
        return Word::NoBackup;
    case Returned::Failed:
        break;
    }
    return Word::CannotWrite;
}

} // namespace

int TellFiles(const std::vector<std::string>& names, const Options& options, const Talk& talk) {
    int status = fine;
    for (const Finding& finding : LookThrough(names, options, talk, status)) {
        if (!finding.isReadable) {
            status = talk.Fail(finding.path, Word::CannotRead);
            continue;
        }
        const std::string line = Line(finding, talk.language);
        talk.out << (options.json ? Json(finding.path, finding.verdict,
                                         finding.isBorrowed ? finding.chain : std::nullopt)
                     : options.task == Task::List
                         ? line + Readings(finding.verdict, options.list, talk.language)
                         : line);
        status = std::max(status, finding.How() == Answer::Unsure ? unsure : fine);
    }
    return status;
}

int WriteFiles(const std::vector<std::string>& names, const Options& options, const Talk& talk) {
    SurviveFailedWrites();
    int status = fine;
    const std::vector<Finding> findings = LookThrough(names, options, talk, status);
    const std::string path = options.report.empty() ? NewReportPath() : options.report;
    RepairReport report(std::filesystem::absolute(path));
    if (report.Error() != 0)
        return talk.Fail(path, Word::CannotWrite);
    Repairs repairs(report, options.target, options.detect);
    std::vector<Outcome> outcomes(findings.size(), Outcome::Failed);
    {
        ProgressLine progress(talk, findings.size());
        InTwoThreads(
            findings.size(), [&](std::size_t i) { outcomes[i] = repairs.Repair(findings[i]); },
            [&](std::size_t done) {
                progress.Show(done);
                return true;
            });
    }
    status = std::max(status, TellOutcomes(findings, outcomes, talk));
    talk.out << Say(Word::ReportIs, talk.language) << " quillshift-wizard --undo " << Shown(path) << '\n';
    return status;
}

int UndoRepairs(const std::string& report, const Talk& talk) {
    SurviveFailedWrites();
    const FileContents contents = PosixFiles::ReadNative(report);
    if (contents.failure)
        return talk.Fail(report, Word::CannotRead);
    const auto entries = EntriesOf(contents.bytes);
    if (!entries)
        return talk.Fail(report, Word::NoReport);
    int status = fine;
    ProgressLine progress(talk, entries->size());
    FolderTimes times;
    for (std::size_t i = 0; i < entries->size(); ++i) {
        const RepairEntry& entry = (*entries)[entries->size() - 1 - i];
        const Returned returned = BringBack(entry, times);
        if (returned == Returned::Restored || returned == Returned::AsBefore)
            talk.out << Shown(entry.path) << ": " << Say(WordOf(returned), talk.language) << '\n';
        else
            status = talk.Fail(entry.path, WordOf(returned));
        progress.Show(i + 1);
    }
    return status;
}

} // namespace quillshift::wizard
