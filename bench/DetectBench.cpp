// Times what the wizard needs to say what happened to a text: short ones gone through every way, and long
// ones of the kinds that are dearest. Prints the median and the longest beside what is allowed; ends with 1
// where a median is over it.
#include "wizard/detect/Detector.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <vector>

using namespace quillshift::wizard;

namespace {

constexpr std::string_view prose =
    "Поздно вечером, когда погасли огни, старый смотритель ещё раз обошёл причал. Вода стояла высоко, и "
    "лодки глухо стучали бортами о сваи. Завтра, подумал он, придёт пароход с почтой, и всё начнётся "
    "сначала. Никто не встретился ему по дороге домой, кроме рыжей собаки, которая жила при кузнице.\n";
constexpr double shortBar = 1, longBar = 5; // milliseconds

int status = 0;
volatile std::uint64_t sum = 0; // so that what is read counts

/// Of this thread alone: what else runs on the machine does not count.
template <typename Work>
double ProcessorMilliseconds(Work work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
    };
    const double start = now();
    work();
    return now() - start;
}

void Print(const char* what, std::vector<double> times, double bar) {
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    status |= median > bar;
    std::printf("%-44s %6zu %9.3f %9.3f %6.0f\n", what, times.size(), median, times.back(), bar);
}

std::string Letters(std::size_t from, std::size_t count) {
    std::size_t at = 0;
    for (std::size_t i = 0; i < from; ++i)
        NextUtf8(prose, at);
    const std::size_t start = at;
    for (std::size_t letters = 0; letters < count && at < prose.size();)
        letters += NextUtf8(prose, at) >= 0x80;
    return std::string(prose.substr(start, at - start));
}

/// Each text of 5 to 200 letters gone through `layers` wrong readings of every kind.
void Short(const char* what, std::size_t layers) {
    const std::vector<Set> written = {Set::Dos866, Set::Windows1251, Set::Koi8R,
                                      Set::Iso5,   Set::Mac,         Set::Utf8};
    const std::vector<Set> read = {Set::Dos866, Set::Windows1251, Set::Koi8R, Set::Mac,
                                   Set::Iso5,   Set::Latin,       Set::Dos437};
    std::vector<double> times;
    const std::function<void(const Chain&, const std::string&)> go = [&](const Chain& chain,
                                                                         const std::string& text) {
        if (chain.layers.size() == layers) {
            if (const auto bytes = Garble(chain, text))
                times.push_back(ProcessorMilliseconds([&] { Detect(*bytes); }));
            return;
        }
        for (const Set writer : written)
            for (const Set reader : read)
                if (writer != reader) {
                    Chain longer = chain;
                    longer.layers.push_back({writer, reader});
                    go(longer, text);
                }
    };
    for (const std::size_t count : {5U, 20U, 80U, 200U})
        go({}, Letters(count % 7, count));
    Print(what, std::move(times), shortBar);
}

void Stored(const char* what) {
    std::vector<double> times;
    for (std::size_t count = 1; count <= 200; ++count)
        for (const Set set : {Set::Dos866, Set::Windows1251, Set::Koi8R, Set::Iso5, Set::Mac, Set::Utf8})
            if (const auto bytes = Encode(set, Letters(count % 20, count)))
                times.push_back(ProcessorMilliseconds([&] { Detect(*bytes); }));
    Print(what, std::move(times), shortBar);
}

template <typename Work>
std::vector<double> Times(Work work) {
    std::vector<double> times(15);
    for (double& time : times)
        time = ProcessorMilliseconds(work);
    return times;
}

void Long(const std::string& what, const std::string& bytes) {
    Print(what.c_str(), Times([&] { Detect(bytes); }), longBar);
}

/// What is to be called clean is read whole, at half of memory's speed at least.
void Whole(const std::string& name, const std::string& bytes) {
    std::vector<double> read = Times([&] {
        std::uint64_t all = 0;
        for (std::size_t at = 0; at + sizeof all <= bytes.size(); at += sizeof all) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes.data() + at, sizeof word);
            all += word;
        }
        sum = all;
    });
    std::sort(read.begin(), read.end());
    const double allowed = longBar + 2 * read[read.size() / 2];
    Print(("no more than reading " + name).c_str(), std::move(read), allowed);
    Print(("clean, " + name).c_str(), Times([&] { Detect(bytes); }), allowed);
}

std::string Filled(std::string_view piece, std::size_t size) {
    std::string bytes;
    while (bytes.size() < size)
        bytes += piece;
    return bytes;
}

void AllLong(const std::string& name, std::size_t size) {
    const auto garbled = [](const char* chain) { return Garble(ChainFrom(chain).value(), prose).value(); };
    const std::string koi = Encode(Set::Koi8R, prose).value();
    Whole(name, Filled(prose, size));
    Long("koi8-r, " + name, Filled(koi, size));
    Long("koi8-r>866, " + name, Filled(garbled("koi8-r>866"), size));
    Long("koi8-r>866,utf-8>437, " + name, Filled(garbled("koi8-r>866,utf-8>437"), size));
    std::string text = Filled(garbled("koi8-r>866,utf-8>866"), size);
    std::replace(text.begin(), text.end(), '\n', ' ');
    Long("the same on one line, " + name, text);
    Long("ASCII with one line, " + name, Filled("Plain words in a row, a line of them.\n", size) + koi);
    Long("entities, " + name, Filled("&#1055;&#1088;&#1080;&#1074;&#1077;&#1090; ", size));
    Long("headers' words, " + name, Filled("=?koi8-r?B?8NLJ18XU?= ", size));
    std::string mixed = Filled(prose, size / 2);
    Long("clean, then 866, " + name, mixed + Filled(Encode(Set::Dos866, prose).value(), size / 2));
}

} // namespace

int main() {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    Detect("\xCF\xF0\xE8"); // the tables are made at first use
    std::printf("%-44s %6s %9s %9s %6s\n", "milliseconds", "cases", "median", "longest", "bar");
    Stored("up to 200 letters, stored in a set");
    Short("up to 200 letters, read wrong once", 1);
    Short("up to 200 letters, read wrong twice", 2);
    AllLong("10 kB", 10'000);
    AllLong("1 MB", 1'000'000);
    AllLong("100 MB", 100'000'000);
    return status;
}
