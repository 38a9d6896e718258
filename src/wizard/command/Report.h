#pragma once

#include "wizard/command/Words.h"
#include "wizard/files/Findings.h"

namespace quillshift::wizard {

/// One line on an input: its name, how sure, chain, and what else is to be said of it.
std::string Line(const Finding& finding, Language language);
std::string Line(std::string_view name, const Verdict& verdict, Language language);
/// A line for each of the likeliest readings, `most` at most: score in bits, chain, beginning.
std::string Readings(const Verdict& verdict, std::size_t most, Language language);
/// The verdict as one JSON object on a line; with a chain that a file borrows from its neighbours it is sure.
std::string Json(std::string_view name, const Verdict& verdict, const std::optional<Chain>& borrowed = {});

} // namespace quillshift::wizard
