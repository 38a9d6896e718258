#pragma once

#include "platform/Platform.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillshift {

/// Does at once what it is told, in memory. `fails`: as on a full disk.
class FakeRecoveryStore final : public RecoveryStore {
public:
    void Replace(std::function<std::string()> contents) override {
        ++wholes;
        hasFailed_ = false;
        if (Can(true))
            file = contents();
    }
    void Append(std::string bytes) override {
        if (Can(file.has_value()))
            *file += bytes;
    }
    void Rewrite(std::function<std::optional<std::string>(std::string_view)> shorten) override {
        const auto shorter = file ? shorten(*file) : std::nullopt;
        if (Can(shorter.has_value()))
            file = shorter;
        ++rewrites;
    }
    void SetAside() override { kept = std::exchange(file, std::nullopt); }
    void Remove() override { file.reset(); }
    void RemoveAll() override {
        file.reset();
        kept.reset();
    }
    void Take(const std::string& name) override {
        const auto found = std::ranges::find(left, name, &LeftFile::name);
        hasFailed_ = hasFailed_ || found == left.end();
        if (found == left.end())
            return;
        file = found->bytes;
        left.erase(found);
    }
    bool HasFailed() const override { return hasFailed_; }
    void Finish() override { ++finishes; }

    std::vector<LeftFile> FindLeft() override { return left; }
    std::optional<FileFailure> PutIntoTrash(const LeftFile& thrown) override {
        if (fails)
            return FileFailure{61, u"На диске нет места"};
        trash.push_back(thrown.name);
        std::erase_if(left, [&](const LeftFile& one) { return one.name == thrown.name; });
        return std::nullopt;
    }
    std::u16string PutAway(const std::string& name) override {
        std::erase_if(left, [&](const LeftFile& one) { return one.name == name; });
        return u"/away";
    }
    void Release() override { ++releases; }

    /// The event in which failures are told of.
    void PassEvent() {
        if (std::exchange(isUntold_, false))
            OnFailure();
    }

    std::optional<std::string> file, kept;
    std::vector<LeftFile> left;
    std::vector<std::string> trash;
    bool fails = false;
    int wholes = 0;
    int rewrites = 0;
    int finishes = 0;
    int releases = 0;

private:
    bool Can(bool possible) {
        if (!hasFailed_ && (fails || !possible))
            hasFailed_ = isUntold_ = true;
        return !hasFailed_;
    }

    bool hasFailed_ = false;
    bool isUntold_ = false;
};

} // namespace quillshift
