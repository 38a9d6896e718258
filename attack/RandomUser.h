#pragma once

#include "harness/Desktop.h"

#include <deque>
#include <random>
#include <string>

namespace quillshift::attack {

/// Does anything that hands can do on a desktop, in any order. One seed gives one row of doings.
class RandomUser {
public:
    RandomUser(e2e::Desktop& desktop, unsigned seed) : desktop_(desktop), random_(seed) {}

    /// One key, click, drag or change of a window. `window` is the one that the mouse is mostly over.
    void Act(e2e::XWindow window);
    /// The last twenty doings, the oldest first.
    const std::deque<std::string>& Last() const { return last_; }

private:
    void Note(std::string doing);
    void Note(std::string doing, Point place);
    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }
    Point AnyPlace(e2e::XWindow window);
    void PressAnyKey();
    void TypeAnyText();
    void UseMouse(e2e::XWindow window);
    void ChangeWindow(e2e::XWindow window);

    e2e::Desktop& desktop_;
    std::mt19937 random_;
    std::deque<std::string> last_;
};

} // namespace quillshift::attack
