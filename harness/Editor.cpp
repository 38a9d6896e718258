#include "harness/Editor.h"

#include "base/Texts.h"
#include "base/Utf8.h"
#include "settings/FirstValues.h"
#include "shell/Catalogue.h"

#include <algorithm>

namespace quillshift::e2e {

std::vector<int> MenuPlaces(std::string_view commandKey) {
    std::vector<int> places;
    for (std::string_view key = commandKey; !ParentKey(key).empty(); key = ParentKey(key)) {
        int place = 0;
        bool found = false;
        for (const CatalogueEntry& entry : Catalogue()) {
            if (ParentKey(entry.Key) != ParentKey(key) || entry.Style == ButtonStyle::Separator)
                continue;
            found = entry.Key == key;
            if (found)
                break;
            ++place;
        }
        if (!found)
            return {};
        places.insert(places.begin(), place);
    }
    return places;
}

Editor::Editor(Desktop& desktop, std::filesystem::path program)
    : desktop_(desktop),
      file_(std::move(program)),
      storeFile_(home / "data/quillshift/settings.db"),
      store_(storeFile_),
      settings_(store_) {
    store_.SetUp([&](SettingsBackend& first) {
        Settings settings(first);
        WriteFirstValues(settings, {.programFolder = FromUtf8(file_.parent_path().string()),
                                    .printerName = u"",
                                    .mainWindow = {1500_twips, 750_twips, 11700_twips, 9150_twips}});
    });
    Set(Setting::FirstRun, u"0").Set(Setting::MessageOnExit, u"0");
    for (const Setting dialog : {Setting::Welcome, Setting::WorkBegin})
        settings_.Switch(dialog, false);
}

void Editor::DeleteStore() {
    std::filesystem::remove_all(storeFile_.parent_path());
}

void Editor::Launch() {
    Environment all = environment;
    all.merge(desktop_.ProgramEnvironment(home.Path()));
    program_ = std::make_unique<Process>(file_, std::vector<std::string>{}, all);
}

Editor& Editor::Start() {
    Launch();
    Settle();
    return *this;
}

// Quiet may come while another window has the keyboard, and the keyboard before the work is done.
void Editor::SettleWhere(const std::string& what, const std::function<bool(XWindow)>& isWanted) {
    const auto hasKeyboard = [&] {
        if (const auto code = program_->ExitCode())
            throw std::runtime_error("the program ended with code " + std::to_string(*code));
        return isWanted(desktop_.Active());
    };
    do {
        desktop_.WaitUntil(what + " has the keyboard", hasKeyboard);
        desktop_.WaitUntilQuiet(*program_);
    } while (!hasKeyboard());
}

void Editor::Settle() {
    SettleWhere("the main window", [this](XWindow window) {
        window_ = window;
        return desktop_.Title(window).starts_with(u"Morvane Quillshift 3.0") && !desktop_.IsDialog(window);
    });
}

void Editor::SettleIn(std::u16string_view title) {
    SettleWhere(ToUtf8(title), [&](XWindow window) { return desktop_.Title(window) == title; });
}

void Editor::Press(std::string_view chords, std::u16string_view title) {
    desktop_.Press(chords);
    if (title.empty())
        Settle();
    else
        SettleIn(title);
}

int Editor::WaitForEnd() {
    desktop_.WaitUntil("the program ends", [this] { return !Runs(); });
    return program_->ExitCode().value();
}

int Editor::Close() {
    desktop_.AskToClose(window_);
    return WaitForEnd();
}

Editor& Editor::Choose(std::string_view commandKey) {
    const std::vector<int> places = MenuPlaces(commandKey);
    if (places.empty())
        throw std::runtime_error("no command " + std::string(commandKey));
    desktop_.Press("Alt");
    for (int i = 0; i < places.front(); ++i)
        desktop_.Press("Right");
    desktop_.Press("Down");
    for (std::size_t level = 1; level < places.size(); ++level) {
        for (int i = 0; i < places[level]; ++i)
            desktop_.Press("Down");
        if (level + 1 < places.size())
            desktop_.Press("Return");
    }
    desktop_.Press("Return");
    return *this;
}

void Editor::AnswerFileDialog(std::u16string_view title, const std::filesystem::path& file) {
    SettleIn(title);
    const XWindow dialog = desktop_.Active();
    desktop_.Press("Ctrl+a");
    // The dialog looks into each folder as its name is typed, and loses letters that come meanwhile.
    for (std::u16string rest = FromUtf8(file.string()); !rest.empty();) {
        const std::size_t end = std::min(rest.find(u'/'), rest.size() - 1) + 1;
        desktop_.Type(rest.substr(0, end));
        desktop_.WaitUntilQuiet(*program_);
        rest.erase(0, end);
    }
    desktop_.Press("Return");
    bool asks = false;
    desktop_.WaitUntil("the dialog is gone or asks", [&] {
        const XWindow active = desktop_.Active();
        asks = active != 0 && active != dialog && desktop_.Title(active) == title;
        return asks || desktop_.Find(title) == 0;
    });
    if (asks) {
        SettleIn(title);
        desktop_.Press("Left Return");
    }
    desktop_.WaitUntilGone(title);
}

void Editor::Open(const std::filesystem::path& file) {
    desktop_.Press("Ctrl+o");
    AnswerFileDialog(u"Открытие документа", file);
    Settle();
}

Editor& Editor::SaveUnder(const std::filesystem::path& file) {
    desktop_.Press("Ctrl+Shift+s");
    AnswerFileDialog(u"Сохранение документа", file);
    return *this;
}

void Editor::SaveAs(const std::filesystem::path& file) {
    std::filesystem::remove(file);
    SaveUnder(file);
    desktop_.WaitUntil("the file is there", [&] { return std::filesystem::exists(file); });
    Settle();
}

Editor& Editor::AnswerBox(BoxAnswer answer) {
    XWindow box = 0;
    SettleWhere("a message box", [&](XWindow window) {
        box = window;
        return desktop_.Title(window) == kProgramTitle && desktop_.IsDialog(window);
    });
    if (answer == BoxAnswer::Cancel) {
        desktop_.Press("Escape");
    } else {
        desktop_.Press(answer == BoxAnswer::No ? "Tab Return" : "Return");
    }
    desktop_.WaitUntil("the message box is gone", [&] {
        const auto windows = desktop_.Windows();
        return std::find(windows.begin(), windows.end(), box) == windows.end();
    });
    return *this;
}

} // namespace quillshift::e2e
