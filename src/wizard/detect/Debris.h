#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift::wizard {

/// Ways to write bytes or characters down in ASCII that are left over where nobody read them back.
enum class Debris : std::uint8_t { QuotedPrintable, Base64, EncodedWords, Entities, Escapes, Percent };

std::string_view NameOf(Debris debris);
std::optional<Debris> DebrisNamed(std::string_view name);

/// The kind that the text is full of, if one.
std::optional<Debris> FindDebris(std::string_view text);

/// Reads it back. Numbers of characters become UTF-8; what is none of the kind stays.
std::string UndoDebris(Debris debris, std::string_view text);

} // namespace quillshift::wizard
