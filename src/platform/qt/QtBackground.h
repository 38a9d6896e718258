#pragma once

#include "platform/Background.h"

#include <memory>

namespace quillshift {

/// A thread for each work: one that never comes back from a dead disk keeps no other one from its own.
class QtBackground final : public Background {
public:
    QtBackground();
    ~QtBackground() override;
    QtBackground(const QtBackground&) = delete;
    QtBackground& operator=(const QtBackground&) = delete;

    void Run(std::function<std::function<void()>()> work) override;

private:
    struct Receiver;
    std::shared_ptr<Receiver> receiver_;
};

} // namespace quillshift
