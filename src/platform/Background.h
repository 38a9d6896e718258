#pragma once

#include <functional>

namespace quillshift {

/// A place for work that may wait for a disk or another machine.
class Background {
public:
    virtual ~Background() = default;

    /// Runs `work` elsewhere, and in a later event what it answers. Nobody waits for it, not even the end of
    /// the program, so it refers to nothing that isn't there to the last.
    virtual void Run(std::function<std::function<void()>()> work) = 0;
};

} // namespace quillshift
