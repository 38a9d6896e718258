#pragma once

#include <string>
#include <string_view>

namespace quillshift::wizard {

enum class Language { English, Russian };

/// What the command says, by the language of the locale.
enum class Word {
    Help,
    BadArgument,
    CannotRead,
    NotRepresentable,
    LeftUnsure,
    LinesApart,
    Clean,
    Sure,
    Unsure,
    Binary,
    Lost,
    Borrowed,
    OtherNames,
    ReportIs,
    NoReport,
    CannotWrite,
    Repaired,
    LeftAlone,
    DoesNotFit,
    ChangedMeanwhile,
    Restored,
    AsBefore,
    Gone,
    NoBackup
};

std::string_view Say(Word word, Language language);

/// The language of the environment's locale.
Language LanguageOfLocale();

/// A file's name on one line of a terminal: control characters and backslashes are written as escapes.
std::string Shown(std::string_view name);

} // namespace quillshift::wizard
