#pragma once

#include <chrono>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace quillshift::attack {

/// What came of trying something.
struct Count {
    int tries = 1;
    int held = 0; ///< held the program up
    int lost = 0; ///< lost a text, or ended the program
    std::chrono::microseconds longest{};
};

/// The rows of one attack, tried one after the other and printed as they are.
class Table {
public:
    /// Takes the arguments of a program: for how many seconds all is tried (0: each row once), a part of the
    /// names of the rows that are, and the seed of what is random; all may be left out.
    Table(std::string subject, int argc, char** argv);

    /// What is random comes from here; it is printed with the table, so that it can be had again.
    unsigned Seed() const { return seed_; }
    /// `attempt` is repeated as long as the row has time.
    void Add(const std::string& name, std::function<Count()> attempt);
    /// Gives the exit code: 0 if nothing was lost, and nothing held the program up each time.
    int Run();

private:
    struct Row {
        std::string name;
        std::function<Count()> attempt;
    };
    Count Try(const Row& row, std::chrono::duration<double> time) const;

    std::string subject_;
    std::chrono::duration<double> time_{};
    std::string only_;
    unsigned seed_ = std::random_device()();
    std::vector<Row> rows_;
};

} // namespace quillshift::attack
