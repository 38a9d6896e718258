#pragma once

#include "controls/hooks/ISubclass.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillshift {

/// Windows in memory. Each one's own handler writes "old" to `log` and answers `kOldAnswer`.
class FakeWindowMessages final : public WindowMessages, private WindowHandler {
public:
    static constexpr MessageValue kOldAnswer = 1000;
    using Properties = std::map<std::string, MessageValue, std::less<>>;

    void Open(WindowId window) { windows_[window].handler = this; }
    /// Sends a message to whatever handles those of the window.
    MessageValue Send(WindowId window, int message) {
        return windows_.at(window).handler->HandleMessage(window, message, 0, 0);
    }
    bool IsHooked(WindowId window) const { return windows_.at(window).handler != this; }
    const Properties& PropertiesOf(WindowId window) const { return windows_.at(window).properties; }

    bool IsWindow(WindowId window) const override { return windows_.contains(window); }
    bool IsLocal(WindowId window) const override { return !foreign.contains(window); }
    MessageValue Property(WindowId window, std::string_view name) const override {
        const auto& properties = windows_.at(window).properties;
        const auto found = properties.find(name);
        return found == properties.end() ? 0 : found->second;
    }
    bool SetProperty(WindowId window, std::string_view name, MessageValue value) override {
        auto& properties = windows_.at(window).properties;
        properties[std::string(name)] = value;
        std::erase_if(properties, [](const auto& property) { return property.second == 0; });
        return true;
    }
    WindowHandler* SetHandler(WindowId window, WindowHandler& handler) override {
        return std::exchange(windows_.at(window).handler, &handler);
    }

    std::set<WindowId> foreign;
    std::vector<std::string> log;

private:
    struct Window {
        WindowHandler* handler = nullptr;
        Properties properties;
    };
    MessageValue HandleMessage(WindowId, int, MessageValue, MessageValue) override {
        log.emplace_back("old");
        return kOldAnswer;
    }

    std::map<WindowId, Window> windows_;
};

/// Writes its name to `log` and answers `answer`.
class FakeSubclass final : public ISubclass {
public:
    FakeSubclass(std::string name, std::vector<std::string>& log, MessageValue answer = 0)
        : name_(std::move(name)), log_(log), answer_(answer) {}

    MessageResponse MsgResponse() const override { return response; }
    MessageValue WindowProc(WindowId, int, MessageValue first, MessageValue) override {
        log_.push_back(name_);
        wParam = first;
        if (react)
            react();
        return answer_;
    }

    MessageResponse response = MessageResponse::After;
    std::function<void()> react;
    MessageValue wParam = 0; ///< of the last message

private:
    std::string name_;
    std::vector<std::string>& log_;
    MessageValue answer_;
};

} // namespace quillshift
