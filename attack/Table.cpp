#include "Table.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace quillshift::attack {
namespace {

using Clock = std::chrono::steady_clock;

// What a busy machine held up once is tried again; what holds the program up each time does it harm.
constexpr int kLooks = 3;

double Milliseconds(std::chrono::microseconds time) {
    return static_cast<double>(time.count()) / 1000;
}

} // namespace

Table::Table(std::string subject, int argc, char** argv) : subject_(std::move(subject)) {
    if (argc > 1)
        time_ = std::chrono::duration<double>(std::atof(argv[1]));
    if (argc > 2)
        only_ = argv[2];
    if (argc > 3)
        seed_ = static_cast<unsigned>(std::strtoul(argv[3], nullptr, 10));
}

void Table::Add(const std::string& name, std::function<Count()> attempt) {
    if (name.find(only_) != std::string::npos)
        rows_.push_back({name, std::move(attempt)});
}

Count Table::Try(const Row& row, std::chrono::duration<double> time) const {
    Count sum{.tries = 0};
    const auto onceMore = [&] { return sum.held == sum.tries && sum.held < kLooks; };
    for (const auto end = Clock::now() + time; onceMore() || Clock::now() < end;) {
        Count count;
        try {
            count = row.attempt();
        } catch (const std::runtime_error& error) { // a program has ended, or takes no keys
            std::fprintf(stderr, "%s: %s\n", row.name.c_str(), error.what());
            count.lost = 1;
        }
        sum.tries += count.tries;
        sum.held += count.held;
        sum.lost += count.lost;
        sum.longest = std::max(sum.longest, count.longest);
    }
    return sum;
}

int Table::Run() {
    const std::string title = subject_ + ", seed " + std::to_string(seed_);
    std::printf("%-46s %6s %6s %6s %10s\n", title.c_str(), "tries", "held", "lost", "longest ms");
    bool allWell = true;
    const auto end = Clock::now() + time_;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const std::chrono::duration<double> left = end - Clock::now();
        const Count count = Try(rows_[row], left / static_cast<double>(rows_.size() - row));
        allWell = allWell && count.lost == 0 && count.held < count.tries;
        std::printf("%-46s %6d %6d %6d %10.1f\n", rows_[row].name.c_str(), count.tries, count.held,
                    count.lost, Milliseconds(count.longest));
        std::fflush(stdout);
    }
    return allWell ? 0 : 1;
}

} // namespace quillshift::attack
