#pragma once

#include "platform/Platform.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillshift {

/// A disk of regular files and links to them. All folders are there.
class FakeFiles final : public FileSystem {
public:
    FileContents Read(std::u16string_view path) override {
        read.emplace_back(path);
        if (const auto failing = unreachable.find(Behind(path)); failing != unreachable.end())
            return {.bytes = {}, .failure = kBroken, .isUnknown = true};
        const auto found = files.find(Behind(path));
        if (found == files.end())
            return {.bytes = {}, .failure = FileFailure{53, u"Файл не найден"}};
        if (unreadable.contains(found->first))
            return {.bytes = {}, .failure = FileFailure{70, u"Нет прав доступа к файлу"}, .isFile = true};
        return {.bytes = found->second, .failure = {}, .isFile = true, .mark = MarkIn(*found)};
    }
    Written Replace(std::u16string_view path, std::string_view bytes, const Expected& expected) override {
        if (const auto other = std::exchange(beforeReplace, nullptr))
            other();
        const std::u16string target = Behind(path);
        const auto found = files.find(target);
        if (expected.what != Expected::What::Anything &&
            (expected.what == Expected::What::Bytes ? found == files.end() || found->second != expected.bytes
                                                    : found != files.end()))
            return {.failure = {}, .unexpected = true};
        if (unwritable.contains(target))
            return {kFull};
        files[target] = bytes;
        if (swapsNames)
            return {.failure = kBroken, .replaced = true};
        done.push_back(u"write " + target);
        return {.failure = {}, .mark = MarkIn(*files.find(target))};
    }
    Preparation PrepareBackup(std::u16string_view path, std::string_view bytes,
                              std::u16string_view document) override {
        if (path == Behind(document))
            return {.backup = nullptr, .failure = {}, .isDocument = true};
        if (unwritable.contains(std::u16string(path)))
            return {nullptr, kFull};
        done.push_back(u"prepare " + std::u16string(path));
        return {std::make_unique<Backup>(*this, path, bytes), std::nullopt};
    }
    std::optional<FileFacts> Facts(std::u16string_view path) override {
        const auto found = facts.find(Behind(path));
        if (found != facts.end())
            return found->second;
        if (!files.contains(Behind(path)))
            return std::nullopt;
        return FileFacts{.size = files[Behind(path)].size(), .created = {}};
    }
    bool IsLink(std::u16string_view path) override { return links.contains(std::u16string(path)); }
    std::optional<FileMark> MarkOf(std::u16string_view path) override {
        const auto found = files.find(Behind(path));
        return found == files.end() ? std::nullopt : std::optional(MarkIn(*found));
    }
    std::optional<FileFailure> CopyToTrash(std::u16string_view path, std::string_view bytes) override {
        if (!files.contains(Behind(path)))
            return FileFailure{53, u"Файл не найден"};
        if (trashIsFull)
            return kFull;
        trash.emplace_back(Behind(path), bytes);
        done.push_back(u"trash " + Behind(path));
        return std::nullopt;
    }
    std::map<std::u16string, std::string> files;
    std::map<std::u16string, std::u16string> links;
    std::map<std::u16string, FileFacts> facts; ///< where a test asks for more than the size
    std::vector<std::u16string> read;          ///< in order
    std::set<std::u16string> unwritable;
    std::set<std::u16string> unreadable;
    std::vector<std::pair<std::u16string, std::string>> trash;
    std::set<std::u16string> unreachable; ///< nobody can tell whether they are there
    bool swapsNames = false;              ///< somebody does, when a file was replaced
    bool trashIsFull = false;
    std::map<std::u16string, int> times; ///< of the contents, where they are not 0
    std::vector<std::u16string> done;    ///< what changed something, in order
    std::function<void()> beforeReplace; ///< another program's doing, once

private:
    inline static const FileFailure kBroken{75, u"Ошибка диска"};
    inline static const FileFailure kFull{61, u"На диске нет места"};

    class Backup final : public PreparedBackup {
    public:
        Backup(FakeFiles& disk, std::u16string_view path, std::string_view bytes)
            : disk_(disk), path_(path), bytes_(bytes) {}
        std::optional<FileFailure> PutInPlace() override {
            disk_.links.erase(path_);
            disk_.files[path_] = bytes_;
            disk_.done.push_back(u"back up " + path_);
            return std::nullopt;
        }

    private:
        FakeFiles& disk_;
        std::u16string path_;
        std::string bytes_;
    };
    FileMark MarkIn(const std::pair<const std::u16string, std::string>& file) {
        return {.size = static_cast<std::int64_t>(file.second.size()), .seconds = times[file.first]};
    }
    std::u16string Behind(std::u16string_view path) const {
        const auto link = links.find(std::u16string(path));
        return link == links.end() ? std::u16string(path) : Behind(link->second);
    }
};

} // namespace quillshift
