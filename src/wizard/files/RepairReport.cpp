#include "wizard/files/RepairReport.h"

#include "platform/posix/PrivateFolder.h"
#include "platform/posix/XdgFolders.h"

#include <fcntl.h>

#include <array>
#include <charconv>
#include <ctime>
#include <string_view>

namespace quillshift::wizard {

namespace {

constexpr std::string_view kHeading = "quillshift-wizard repairs 1\n";
constexpr std::size_t kFields = 8;
constexpr std::string_view kKept = "\tkept"; ///< behind them, where the backup was there before

/// A path on one line and between tabs.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\\' || c == '\t' || c == '\n')
            escaped += '\\';
        escaped += c == '\t' ? 't' : c == '\n' ? 'n' : c;
    }
    return escaped;
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '\\' && i + 1 < text.size();
        i += isEscape ? 1 : 0;
        plain += isEscape && text[i] == 't' ? '\t' : isEscape && text[i] == 'n' ? '\n' : text[i];
    }
    return plain;
}

template <typename Number>
bool Take(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

std::optional<RepairEntry> EntryIn(std::string_view line) {
    const bool keepsBackup = line.ends_with(kKept);
    if (keepsBackup)
        line.remove_suffix(kKept.size());
    std::array<std::string_view, kFields> fields;
    for (std::size_t i = 0; i < kFields; ++i) {
        const std::size_t tab = line.find('\t');
        if ((tab == line.npos) != (i + 1 == kFields))
            return std::nullopt;
        fields[i] = line.substr(0, tab);
        line.remove_prefix(tab == line.npos ? line.size() : tab + 1);
    }
    RepairEntry entry{.before = std::string(fields[0]),
                      .after = std::string(fields[1]),
                      .chain = std::string(fields[2]),
                      .backup = Unescaped(fields[6]),
                      .path = Unescaped(fields[7]),
                      .keepsBackup = keepsBackup};
    if (!Take(fields[3], entry.lost) || !Take(fields[4], entry.seconds) ||
        !Take(fields[5], entry.nanoseconds))
        return std::nullopt;
    return entry;
}

} // namespace

RepairReport::RepairReport(const std::string& path)
    : file_(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0600)) {
    error_ = file_ ? WriteAll(file_.Fd(), kHeading) : errno;
    FlushFolder(path.substr(0, path.rfind('/') + 1));
}

bool RepairReport::Add(const RepairEntry& entry) {
    std::string line = entry.before + '\t' + entry.after + '\t' + entry.chain;
    for (const std::int64_t number :
         {static_cast<std::int64_t>(entry.lost), entry.seconds, entry.nanoseconds})
        line += '\t' + std::to_string(number);
    line += '\t' + Escaped(entry.backup) + '\t' + Escaped(entry.path);
    line.append(entry.keepsBackup ? kKept : "").append("\n");
    const std::lock_guard lock(adding_);
    if (error_ == 0)
        error_ = WriteAll(file_.Fd(), line);
    if (error_ == 0)
        error_ = Flush(file_.Fd());
    return error_ == 0;
}

std::string ReportFolder() {
    return XdgStateFolder() / "quillshift" / "wizard";
}

std::string NewReportPath() {
    const std::string folder = ReportFolder();
    MakeFolders(folder);
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::array<char, 40> name{};
    std::strftime(name.data(), name.size(), "/%Y-%m-%d-%H%M%S", &parts);
    const std::string stem = folder + name.data();
    std::string path = stem + ".report";
    for (int i = 2; access(path.c_str(), F_OK) == 0; ++i)
        path = stem + '-' + std::to_string(i) + ".report";
    return path;
}

std::optional<std::vector<RepairEntry>> EntriesOf(const std::string& bytes) {
    if (!bytes.starts_with(kHeading))
        return std::nullopt;
    std::vector<RepairEntry> entries;
    for (std::size_t at = kHeading.size(), end = 0; (end = bytes.find('\n', at)) != bytes.npos;
         at = end + 1) {
        const auto entry = EntryIn(std::string_view(bytes).substr(at, end - at));
        if (!entry)
            return std::nullopt;
        entries.push_back(*entry);
    }
    return entries;
}

} // namespace quillshift::wizard
