#pragma once

#include <string>
#include <string_view>

namespace quillshift::wizard {

/// The SHA-256 of the bytes as `sha256sum` prints it.
std::string Sha256(std::string_view bytes);

} // namespace quillshift::wizard
