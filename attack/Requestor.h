#pragma once

#include <string>
#include <vector>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library calls it so

namespace quillshift::attack {

/// How a program asks for several forms of a selection at once, by a list of pairs.
struct Request {
    std::string name;
    const char* type = "ATOM_PAIR";
    int format = 32;
    int count = 0;           ///< of the units in the list; 0: there is no list
    bool namesList = true;   ///< else the request doesn't tell where the list is
    bool windowGoes = false; ///< before it can be answered
};
const std::vector<Request>& OddRequests();

/// A program that asks for the clipboard in its own manner.
class Requestor {
public:
    explicit Requestor(const std::string& display);
    ~Requestor();
    Requestor(const Requestor&) = delete;
    Requestor& operator=(const Requestor&) = delete;

    void Ask(const Request& request);

private:
    unsigned long AtomOf(const char* name) const;

    _XDisplay* display_;
};

} // namespace quillshift::attack
