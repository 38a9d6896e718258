#include "base/PlainBytes.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillshift {
namespace {

// Whether an LF stands behind each CR, and nowhere else; without branches, for what is long.
bool HasWholeBreaks(std::string_view bytes) {
    constexpr std::size_t kBlock = 64;
    const auto isHalf = [bytes](std::size_t at) { return (bytes[at] == '\r') != (bytes[at + 1] == '\n'); };
    if (bytes.starts_with('\n') || bytes.ends_with('\r'))
        return false;
    std::size_t at = 0;
    for (bool half = false; at + kBlock < bytes.size(); at += kBlock) {
        for (std::size_t i = 0; i < kBlock; ++i)
            half |= isHalf(at + i);
        if (half)
            return false;
    }
    for (; at + 1 < bytes.size(); ++at)
        if (isHalf(at))
            return false;
    return true;
}

// A line at a time: what is new in memory takes the time.
std::string WithWholeBreaks(std::string_view bytes) {
    constexpr std::string_view kBreak = "\r\n";
    std::string whole;
    whole.reserve(bytes.size() + static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')));
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view row = bytes.substr(0, end);
        const bool isEnded = end < bytes.size();
        bytes.remove_prefix(end + (isEnded ? 1 : 0));
        if (isEnded && row.ends_with('\r'))
            row.remove_suffix(1);
        for (std::size_t at = 0; (at = row.find('\r')) != row.npos; row.remove_prefix(at + 1))
            whole.append(row.substr(0, at)).append(kBreak);
        whole.append(row).append(isEnded ? kBreak : "");
    }
    return whole;
}

} // namespace

PlainBytes::PlainBytes(std::string bytes)
    : bytes_(std::make_shared<const std::string>(HasWholeBreaks(bytes) ? std::move(bytes)
                                                                       : WithWholeBreaks(bytes))) {}

} // namespace quillshift
