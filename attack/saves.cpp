// A failure and a kill at each call to the system that a save makes. Whatever happens, the document, its
// backup, a file beside them or the trash has to hold the old text or the new one, whole; and what was told
// of the save has to be true.

#include "Fence.h"
#include "Table.h"

#include "base/Utf8.h"
#include "harness/Calls.h"
#include "harness/TemporaryFolder.h"
#include "platform/posix/PosixFiles.h"
#include "support/TestProgram.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <iostream>

namespace quillshift::attack {
namespace {

namespace fs = std::filesystem;

const std::string kOld = "the old text\r\n";
const std::string kTheirs = "what another program wrote";
const std::string kTheirBackup = "what another program wrote earlier";
const std::u16string kNew(100'000, u'n');
const std::string kNewBytes = std::string(kNew.size(), 'n') + "\r\n";

/// A save that is tried.
struct Save {
    const char* name;
    bool again;  ///< of a document that was saved before; else it is saved under the name of another's file
    bool over;   ///< such a file is there, with a backup of its own
    bool backup; ///< is made
    enum class Name { Plain, HardLink, SoftLink } kind = Name::Plain;
};

constexpr Save kSaves[] = {{"a new file", false, false, false},
                           {"a new file and its backup", false, false, true},
                           {"a file once more", true, false, false},
                           {"a file once more and its backup", true, false, true},
                           {"over a file of another", false, true, false},
                           {"over a file of another, and its backup", false, true, true},
                           {"a file of two names", true, false, false, Save::Name::HardLink},
                           {"a file of two names and its backup", true, false, true, Save::Name::HardLink},
                           {"through a link, and its backup", true, false, true, Save::Name::SoftLink}};

enum Told { Saved, Failed, BackupFailed };

/// The program without its windows, but on the real disk.
class Saver {
public:
    explicit Saver(const fs::path& home)
        : document_(home / "d/a.txt"), files_(home / "safe"), test_(&files_) {
        test_.Start();
    }

    void Prepare(const Save& save) {
        test_.Set(Setting::CreateBackup, save.backup ? u"1" : u"0").Set(Setting::CreateBackupIn, u"1");
        test_.messageBox.answers.assign(10, BoxAnswer::No); // nothing may be lost
        if (save.over) {
            Put(document_, kTheirs);
            Put(document_.string() + ".bak", kTheirBackup);
        }
        if (save.kind == Save::Name::SoftLink)
            fs::create_symlink("real.txt", document_);
        if (save.again)
            SaveAs(u"the old text");
        if (save.kind == Save::Name::HardLink)
            fs::create_hard_link(document_, document_.parent_path() / "other.txt");
        test_.window.document.SetText(kNew);
        test_.program.Parts().document.DocumentModified = true;
        test_.messageBox.shown.clear();
    }

    Told Run(const Save& save) {
        if (save.again)
            test_.program.Run("MENU:FILE:SAVE");
        else
            SaveAs(kNew);
        if (!test_.program.Parts().document.DocumentModified)
            return Saved;
        return test_.LastBox().find(u"Документ сохранен") != std::u16string::npos ? BackupFailed : Failed;
    }

private:
    void SaveAs(std::u16string_view text) {
        test_.window.document.SetText(text);
        test_.fileDialog.chosen = {FromUtf8(document_.string())};
        test_.program.Run("MENU:FILE:SAVEAS");
    }

    fs::path document_;
    PosixFiles files_;
    TestProgram test_;
};

/// What lies in the folders that a save may use.
class Remains {
public:
    explicit Remains(const fs::path& home) : document_(home / "d/a.txt") {
        for (const auto& entry : fs::recursive_directory_iterator(home))
            if (entry.is_regular_file())
                contents_.push_back(Contents(entry.path()));
    }
    /// As it was, or as a backup of it.
    bool Hold(const std::string& text) const {
        return std::any_of(contents_.begin(), contents_.end(), [&](const std::string& contents) {
            return contents == text || contents == text + "\r\n";
        });
    }
    bool Exist() const { return fs::exists(document_); }
    std::string Document() const { return Contents(document_); }
    std::string Backup() const { return Contents(document_.string() + ".bak"); }

private:
    fs::path document_;
    std::vector<std::string> contents_;
};

// What is wrong with what a save has left; empty if nothing is.
std::string Wrong(const Save& save, const Remains& remains, const Ended& ended) {
    const std::string before = save.again ? kOld : save.over ? kTheirs : "";
    const bool isNew = remains.Document() == kNewBytes;
    const bool isOld = before.empty() ? remains.Document().empty() : remains.Document() == before;
    if (!before.empty() && !remains.Exist())
        return "the document is gone";
    if (save.over && !remains.Hold(kTheirBackup))
        return "another's backup is lost";
    // Its own earlier text may go where nobody wants a backup, or where its failure is told.
    const bool mayGo = isNew && !save.over && (!save.backup || (!ended.killed && ended.code == BackupFailed));
    if (!before.empty() && !remains.Hold(before) && !mayGo)
        return "the old text is lost";
    const bool mayBeTorn = save.kind == Save::Name::HardLink && remains.Hold(before);
    if (!isNew && !isOld && !mayBeTorn)
        return "the document holds neither text";
    if (ended.killed)
        return {};
    if (ended.code != Saved && ended.code != Failed && ended.code != BackupFailed)
        return "it ended with " + std::to_string(ended.code);
    if (ended.code != Failed && !isNew)
        return "it told of a save that was none";
    if (ended.code == Saved && save.backup && remains.Backup() != (save.again ? kOld + "\r\n" : "\r\n"))
        return "it told of a backup that is none";
    return {};
}

class SavesAttack {
public:
    SavesAttack(int argc, char** argv);
    int Run() { return table_.Run(); }

private:
    Count TryAtEachCall(const Save& save, const std::string& name, Fault fault);
    Ended Try(const Save& save, const Fault& fault);

    Table table_;
    TemporaryFolder home_;
    Saver saver_{home_.Path()}; // never runs here, but in the processes that are made for each try
};

SavesAttack::SavesAttack(int argc, char** argv) : table_("saves", argc, argv) {
    for (const char* folder : {"HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        setenv(folder, home_.Path().c_str(), 1);
    constexpr std::pair<const char*, Fault::Kind> kFaults[] = {
        {"a call fails", Fault::Kind::Failure},
        {"all calls fail", Fault::Kind::FailuresFromThere},
        {"a kill", Fault::Kind::Kill}};
    for (const Save& save : kSaves)
        for (const auto& [what, kind] : kFaults) {
            const std::string name = std::string(save.name) + ", " + what;
            table_.Add(name, [this, &save, name, kind = kind, pass = 0]() mutable {
                constexpr int kErrors[] = {EIO, ENOSPC, EACCES};
                const int error = kErrors[pass++ % std::ssize(kErrors)];
                return TryAtEachCall(save, name, {.kind = kind, .error = error});
            });
        }
}

Ended SavesAttack::Try(const Save& save, const Fault& fault) {
    for (const auto& entry : fs::directory_iterator(home_.Path()))
        fs::remove_all(entry);
    fs::create_directory(home_ / "d");
    const auto prepare = [&] {
        if (!FenceIn(home_.Path())) // else some would go to the trash of the disk
            std::cerr << "what is in the trash of the disk will be missed\n";
        saver_.Prepare(save);
    };
    return RunWithFault(
        prepare, [&] { return saver_.Run(save); }, fault);
}

// At each call once, until a save comes to its end before that.
Count SavesAttack::TryAtEachCall(const Save& save, const std::string& name, Fault fault) {
    Count count{.tries = 0};
    for (;; ++fault.at) {
        const Ended ended = Try(save, fault);
        const std::string wrong = ended.held ? "" : Wrong(save, Remains(home_.Path()), ended);
        ++count.tries;
        count.held += ended.held ? 1 : 0;
        count.lost += wrong.empty() ? 0 : 1;
        count.longest = std::max(count.longest, ended.took);
        if (!wrong.empty())
            std::cerr << name << ", call " << fault.at << " (the system's " << ended.struck << "), error "
                      << fault.error << ": " << wrong << "\n";
        if (ended.calls <= fault.at)
            return count;
    }
}

} // namespace
} // namespace quillshift::attack

int main(int argc, char** argv) {
    if (std::filesystem::exists("/dev/shm")) // what is flushed there is flushed at once
        setenv("TMPDIR", "/dev/shm", 1);
    return quillshift::attack::SavesAttack(argc, argv).Run();
}
