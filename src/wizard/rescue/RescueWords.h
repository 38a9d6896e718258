#pragma once

#include "wizard/rescue/Proposals.h"
#include "wizard/rescue/Rescue.h"

#include <string>

namespace quillshift::wizard {

// What the window says, in Russian, UTF-8.

/// What a chain says happened: "KOI8-R как DOS 866, UTF-8 как Windows-1251".
std::string Describe(const Chain& chain);
/// The caption of a proposal.
std::string TitleOf(const Proposal& proposal);
/// The columns of the list.
std::string NameOf(const RescueRow& row);
std::string WhatItIs(const RescueRow& row);
std::string HowSure(const RescueRow& row, Target target);
/// What is to be known of a row before something is done with it; may be empty.
std::string NoteOn(const RescueRow& row, bool hasProposals);
/// How far the work is, what it came to, or what is in the list.
std::string StateOf(const Rescue& rescue);

/// "1 файл", "2 файла", "5 файлов": a number with its noun in the three forms of the language.
std::string Counted(std::size_t number, const char* one, const char* few, const char* many);

} // namespace quillshift::wizard
