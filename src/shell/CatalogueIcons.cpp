// The pictures of the entries, from which the icon lists are made.

#include "shell/Catalogue.h"

#include <array>

namespace quillshift {
namespace {

constexpr auto kMenu = std::to_array<IconFile>({
    {"NEW", u"New.ico"},
    {"OPEN", u"Open.ico"},
    {"REOPEN", u"Reopen.ico"},
    {"SAVE", u"Save.ico"},
    {"PRINT", u"Print.ico"},
    {"PRINTSETTINGS", u"Print settings.ico"},
    {"PROPERTIES", u"Properties.ico"},
    {"UNDO", u"Undo.ico"},
    {"REDO", u"Redo.ico"},
    {"CUT", u"Cut.ico"},
    {"COPY", u"Copy.ico"},
    {"PASTE", u"Paste.ico"},
    {"DELETE", u"Delete.ico"},
    {"CLEAR", u"Clear.ico"},
    {"FIND", u"Find.ico"},
    {"REPLACE", u"Replace.ico"},
    {"GOTO", u"Goto.ico"},
    {"TOOLBARCUSTOMIZE", u"ToolbarCustomize.ico"},
    {"FULLSCREEN", u"Fullscreen.ico"},
    {"TIMEANDDATE", u"Time and date.ico"},
    {"TEXTFILE", u"Text file.ico"},
    {"FONT", u"Font.ico"},
    {"OUTDENT", u"Outdent.ico"},
    {"INDENT", u"Indent.ico"},
    {"SETTINGS", u"Settings.ico"},
    {"LOCKED", u"Locked.ico"},
    {"UNDODECODING", u"Undo decoding.ico"},
    {"DECODING", u"Decoding.ico"},
    {"WIZARD", u"Wizard.ico"},
    {"LICENSE", u"License.ico"},
    {"AUTHORMAIL", u"Send Author EMail.ico"},
    {"VISITHOMEPAGE", u"Visit Home Page.ico"},
    {"ABOUT", u"About.ico"},
});

constexpr auto kToolbar = std::to_array<IconFile>({
    {"NEW", u"New.ico"},
    {"OPEN", u"Open.ico"},
    {"REOPEN", u"Reopen.ico"},
    {"SAVE", u"Save.ico"},
    {"PRINT", u"Print.ico"},
    {"PRINTSETTINGS", u"Print settings.ico"},
    {"FULLSCREEN", u"Fullscreen.ico"},
    {"CUT", u"Cut.ico"},
    {"COPY", u"Copy.ico"},
    {"PASTE", u"Paste.ico"},
    {"DELETE", u"Delete.ico"},
    {"CLEAR", u"Clear.ico"},
    {"UNDO", u"Undo.ico"},
    {"REDO", u"Redo.ico"},
    {"FIND", u"Find.ico"},
    {"REPLACE", u"Replace.ico"},
    {"GOTO", u"Goto.ico"},
    {"OUTDENT", u"Outdent.ico"},
    {"INDENT", u"Indent.ico"},
    {"FONT", u"Font.ico"},
    {"TIMEANDDATE", u"Time and date.ico"},
    {"TEXTFILE", u"Text file.ico"},
    {"WIZARD", u"Wizard.ico"},
    {"SETTINGS", u"Settings.ico"},
    {"LOCKED", u"Locked.ico"},
    {"PROPERTIES", u"Properties.ico"},
    {"LICENSE", u"License.ico"},
    {"ABOUT", u"About.ico"},
});

constexpr auto kDecode = std::to_array<IconFile>({
    {"STARTDECODE", u"Start.ico"},
    {"STOPDECODE", u"Stop.ico"},
    {"UNDODECODE", u"Undo decoding.ico"},
});

constexpr int kSmall = 16;
constexpr int kLarge = 24;
constexpr std::u16string_view kSmallFolder = u"/Data/icons/toolbars/small/";
constexpr std::u16string_view kLargeFolder = u"/Data/icons/toolbars/large/";

} // namespace

IconListSource IconsOf(CatalogueIcons list) {
    switch (list) {
    case CatalogueIcons::Menu:
        return {kSmall, u"/Data/icons/menu/", kMenu};
    case CatalogueIcons::ToolbarSmall:
        return {kSmall, kSmallFolder, kToolbar};
    case CatalogueIcons::ToolbarLarge:
        return {kLarge, kLargeFolder, kToolbar};
    case CatalogueIcons::DecodeSmall:
        return {kSmall, kSmallFolder, kDecode};
    case CatalogueIcons::DecodeLarge:
        return {kLarge, kLargeFolder, kDecode};
    }
    return {};
}

} // namespace quillshift
