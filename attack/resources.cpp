// Damaged and odd files in the places of those that the program loads: icons, sounds, the store, RTF. The
// program has to come up and to answer, or to tell what is wrong.

#include "Installed.h"
#include "Mutator.h"
#include "Table.h"
#include "Turns.h"

#include "harness/Editor.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

namespace quillshift::attack {
namespace {

namespace fs = std::filesystem;
using namespace e2e;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kStart = 15s;

class ResourcesAttack {
public:
    ResourcesAttack(int argc, char** argv);
    int Run() { return table_.Run(); }

private:
    std::vector<fs::path> Below(const fs::path& folder) const;
    const fs::path& AnyOf(const std::vector<fs::path>& files) { return files[mutator_.Below(files.size())]; }
    void PutOdd(const fs::path& place);
    Count StartWith(const std::vector<fs::path>& resources, const std::function<void(const fs::path&)>& harm);
    Count StartWithDamagedStore();
    Count OpenDamagedRtf();
    Count ComesUp(Editor& editor);

    Table table_;
    Mutator mutator_;
    Desktop desktop_;
    TemporaryFolder installed_; // a copy of the program that its files may be damaged in
    fs::path program_;
    std::unique_ptr<Editor> reader_; // opens one file after the other
};

ResourcesAttack::ResourcesAttack(int argc, char** argv)
    : table_("resources", argc, argv),
      mutator_(table_.Seed()),
      program_(InstallEditorAlone(installed_.Path())) {
    const auto icons = Below(installed_ / "Data");
    const auto sounds = Below(installed_ / "Sounds");
    const auto damage = [this](const fs::path& file) { Put(file, mutator_.Damaged(Contents(file))); };
    const auto putOdd = [this](const fs::path& file) { PutOdd(file); };
    table_.Add("damaged icons", [=, this] { return StartWith(icons, damage); });
    table_.Add("damaged sounds", [=, this] { return StartWith(sounds, damage); });
    table_.Add("odd things in place of icons", [=, this] { return StartWith(icons, putOdd); });
    table_.Add("odd things in place of sounds", [=, this] { return StartWith(sounds, putOdd); });
    const auto putPipe = [](const fs::path& file) {
        fs::remove(file);
        mkfifo(file.c_str(), 0600);
    };
    const std::vector<fs::path> windowIcon{installed_ / "Data/icons/menu/Decoding.ico"};
    table_.Add("a pipe in place of the window's icon", [=, this] { return StartWith(windowIcon, putPipe); });
    table_.Add("a damaged store", [this] { return StartWithDamagedStore(); });
    table_.Add("damaged RTF", [this] { return OpenDamagedRtf(); });
}

std::vector<fs::path> ResourcesAttack::Below(const fs::path& folder) const {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end()); // a seed gives the same again
    return files;
}

void ResourcesAttack::PutOdd(const fs::path& place) {
    fs::remove(place);
    switch (mutator_.Below(6)) {
    case 0:
        mkfifo(place.c_str(), 0600);
        break;
    case 1:
        fs::create_directory(place);
        break;
    case 2:
        fs::create_symlink("/dev/zero", place);
        break;
    case 3:
        fs::create_symlink(place.filename(), place);
        break;
    case 4:
        Put(place, "");
        fs::resize_file(place, std::uintmax_t{8} << 30U); // takes no room
        break;
    default:
        break; // nothing
    }
}

// A window of the program, be it a report, that answers.
Count ResourcesAttack::ComesUp(Editor& editor) {
    Count count;
    const auto start = Clock::now();
    XWindow window = 0;
    while (window == 0 && editor.Runs() && Clock::now() < start + kStart) {
        window = desktop_.Active();
        std::this_thread::sleep_for(10ms);
    }
    count.held = window == 0 && editor.Runs() ? 1 : 0;
    if (window != 0) {
        Turns turns(desktop_.ProgramEnvironment("").at("DISPLAY"), window,
                    {editor.Program().Pid(), desktop_.Server().Pid()});
        std::this_thread::sleep_for(200ms);
        count.longest = turns.TakeLongest();
        count.held = count.longest > kStart ? 1 : 0;
    }
    count.lost = editor.Runs() ? 0 : 1;
    return count;
}

Count ResourcesAttack::StartWith(const std::vector<fs::path>& resources,
                                 const std::function<void(const fs::path&)>& harm) {
    std::vector<std::pair<fs::path, std::string>> originals;
    for (std::size_t left = 1 + mutator_.Below(resources.size()); left > 0; --left) {
        const fs::path& file = AnyOf(resources);
        if (!fs::is_regular_file(fs::symlink_status(file)) || fs::file_size(file) > 1'000'000)
            continue; // an odd one already
        originals.emplace_back(file, Contents(file));
        harm(file);
    }
    Count count;
    {
        Editor editor(desktop_, program_);
        editor.Set(Setting::FormLoad, u"1").Set(Setting::UseLargeIcons, mutator_.Below(2) == 0 ? u"0" : u"1");
        editor.Launch();
        count = ComesUp(editor);
    }
    std::ranges::reverse(originals); // a file that was changed twice ends as it was first
    for (const auto& [path, bytes] : originals) {
        fs::remove(path);
        Put(path, bytes);
    }
    return count;
}

Count ResourcesAttack::StartWithDamagedStore() {
    Editor editor(desktop_, program_);
    const fs::path file = editor.home / "data/quillshift/settings.db";
    Put(file, mutator_.Damaged(Contents(file)));
    editor.Launch();
    return ComesUp(editor);
}

Count ResourcesAttack::OpenDamagedRtf() {
    static const std::vector<fs::path> samples = Below(fs::path(SAMPLES) / "rtf");
    if (!reader_) {
        reader_ = std::make_unique<Editor>(desktop_, program_);
        reader_->Set(Setting::SaveChange, u"0").Start();
    }
    const fs::path file = reader_->home / "a.rtf";
    Put(file, mutator_.Damaged(Contents(AnyOf(samples))));
    Count count;
    const auto start = Clock::now();
    try {
        desktop_.Press("Ctrl+o");
        reader_->AnswerFileDialog(u"Открытие документа", file);
        desktop_.WaitUntilQuiet(reader_->Program());
        if (desktop_.IsDialog(desktop_.Active())) // it tells of an error
            reader_->AnswerBox(BoxAnswer::Ok);
        reader_->Settle();
        count.longest = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
    } catch (const std::runtime_error&) {
        (reader_->Runs() ? count.held : count.lost) = 1;
        reader_.reset();
    }
    return count;
}

} // namespace
} // namespace quillshift::attack

int main(int argc, char** argv) {
    return quillshift::attack::ResourcesAttack(argc, argv).Run();
}
