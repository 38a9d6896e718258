#include "platform/qt/PrintQueue.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cups/cups.h>
#include <dlfcn.h>
#include <memory>
#include <optional>

namespace quillshift {
namespace {

// The functions of the print system's library that are used here. It is loaded with the first question, not
// with the program: it brings a dozen other libraries along, and most runs print nothing.
struct CupsLibrary {
    decltype(&cupsServer) Server;
    decltype(&ippPort) Port;
    decltype(&cupsEncryption) Encryption;
    decltype(&httpConnect2) Connect;
    decltype(&httpSetTimeout) SetTimeout;
    decltype(&httpClose) Close;
    decltype(&ippNewRequest) NewRequest;
    decltype(&ippAddString) AddString;
    decltype(&ippAddStrings) AddStrings;
    decltype(&cupsDoRequest) DoRequest;
    decltype(&ippDelete) Delete;
    decltype(&ippFindAttribute) FindAttribute;
    decltype(&ippGetCount) GetCount;
    decltype(&ippGetInteger) GetInteger;
    decltype(&ippGetRange) GetRange;
    decltype(&ippGetCollection) GetCollection;
};

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
    // The system's way from an address to a function.
    function = reinterpret_cast<Function>(dlsym(library, name)); // NOLINT(*-reinterpret-cast)
    return function != nullptr;
}

std::optional<CupsLibrary> Load() {
    void* const library = dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL);
    CupsLibrary cups{};
    const bool found =
        library != nullptr && Find(library, "cupsServer", cups.Server) &&
        Find(library, "ippPort", cups.Port) && Find(library, "cupsEncryption", cups.Encryption) &&
        Find(library, "httpConnect2", cups.Connect) && Find(library, "httpSetTimeout", cups.SetTimeout) &&
        Find(library, "httpClose", cups.Close) && Find(library, "ippNewRequest", cups.NewRequest) &&
        Find(library, "ippAddString", cups.AddString) && Find(library, "ippAddStrings", cups.AddStrings) &&
        Find(library, "cupsDoRequest", cups.DoRequest) && Find(library, "ippDelete", cups.Delete) &&
        Find(library, "ippFindAttribute", cups.FindAttribute) &&
        Find(library, "ippGetCount", cups.GetCount) && Find(library, "ippGetInteger", cups.GetInteger) &&
        Find(library, "ippGetRange", cups.GetRange) && Find(library, "ippGetCollection", cups.GetCollection);
    return found ? std::optional(cups) : std::nullopt;
}

// A printer that can do without edges names both 0 and those of its usual way, which it takes unasked.
int WidestEdge(const CupsLibrary& cups, ipp_t* answer, const char* name) {
    ipp_attribute_t* const edges = cups.FindAttribute(answer, name, IPP_TAG_INTEGER);
    int widest = 0;
    for (int i = 0; i < cups.GetCount(edges); ++i)
        widest = std::max(widest, cups.GetInteger(edges, i));
    return widest;
}

PrintQueueFacts::Range Dimension(const CupsLibrary& cups, ipp_t* size, const char* name) {
    if (auto* const number = cups.FindAttribute(size, name, IPP_TAG_INTEGER))
        return {cups.GetInteger(number, 0), cups.GetInteger(number, 0)};
    int most = 0;
    const int least = cups.GetRange(cups.FindAttribute(size, name, IPP_TAG_RANGE), 0, &most);
    return {least, most};
}

PrintQueueFacts Read(const CupsLibrary& cups, ipp_t* answer) {
    PrintQueueFacts facts;
    ipp_attribute_t* const sizes =
        cups.FindAttribute(answer, "media-size-supported", IPP_TAG_BEGIN_COLLECTION);
    for (int i = 0; i < cups.GetCount(sizes); ++i) {
        ipp_t* const size = cups.GetCollection(sizes, i);
        facts.papers.push_back({Dimension(cups, size, "x-dimension"), Dimension(cups, size, "y-dimension")});
    }
    facts.edges = {.left = WidestEdge(cups, answer, "media-left-margin-supported"),
                   .top = WidestEdge(cups, answer, "media-top-margin-supported"),
                   .right = WidestEdge(cups, answer, "media-right-margin-supported"),
                   .bottom = WidestEdge(cups, answer, "media-bottom-margin-supported")};
    return facts;
}

} // namespace

bool PrintQueueFacts::Takes(int paperWidth, int paperHeight) const {
    constexpr int kTolerance = 100;
    const auto isIn = [](int length, const Range& range) {
        return length >= range.least - kTolerance && length <= range.most + kTolerance;
    };
    return papers.empty() || std::any_of(papers.begin(), papers.end(), [&](const Size& size) {
               return isIn(paperWidth, size.width) && isIn(paperHeight, size.height);
           });
}

PrintQueueFacts AskPrintQueue(const std::string& queue) {
    constexpr int kPatience = 500; // milliseconds; connecting and reading have as much each
    static constexpr std::array<const char*, 5> kWanted{
        "media-size-supported", "media-left-margin-supported", "media-top-margin-supported",
        "media-right-margin-supported", "media-bottom-margin-supported"};
    static const std::optional<CupsLibrary> cups = Load();
    if (!cups)
        return {};
    const std::unique_ptr<http_t, decltype(cups->Close)> server(
        cups->Connect(cups->Server(), cups->Port(), nullptr, AF_UNSPEC, cups->Encryption(), 1, kPatience,
                      nullptr),
        cups->Close);
    if (!server)
        return {};
    cups->SetTimeout(server.get(), kPatience / 1000.0, nullptr, nullptr);
    ipp_t* const question = cups->NewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
    const std::string address = "ipp://localhost/printers/" + queue;
    cups->AddString(question, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, address.c_str());
    cups->AddStrings(question, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                     static_cast<int>(kWanted.size()), nullptr, kWanted.data());
    const std::unique_ptr<ipp_t, decltype(cups->Delete)> answer(cups->DoRequest(server.get(), question, "/"),
                                                                cups->Delete);
    return answer ? Read(*cups, answer.get()) : PrintQueueFacts{};
}

} // namespace quillshift
