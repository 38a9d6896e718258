#include "harness/PrintSystem.h"

#include <arpa/inet.h>
#include <csignal>
#include <fstream>
#include <netinet/in.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

namespace quillshift::e2e {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrinterDescription = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "LASER.PPD"
*Manufacturer: "Test"
*Product: "(Laser)"
*ModelName: "Laser"
*ShortNickName: "Laser"
*NickName: "Laser"
*PSVersion: "(3010) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4: ""
*PageSize A5: ""
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4: ""
*PageRegion A5: ""
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "28.35 28.35 566.65 813.65"
*ImageableArea A5: "28.35 28.35 391.65 566.65"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
*PaperDimension A5: "420 595"
*OpenUI *cupsPrintQuality: PickOne
*OrderDependency: 10 AnySetup *cupsPrintQuality
*DefaultcupsPrintQuality: Normal
*cupsPrintQuality Draft: ""
*cupsPrintQuality Normal: ""
*cupsPrintQuality High: ""
*CloseUI: *cupsPrintQuality
)PPD";

// What the printer runs with each document.
constexpr std::string_view kKeep = R"(#!/bin/sh
number=$(ls "$KEPT" | wc -l)
mkdir "$KEPT/new" && cp "$1" "$KEPT/new/document.pdf" && env >"$KEPT/new/attributes" && mv "$KEPT/new" "$KEPT/$number"
)";

int FreePort() {
    const int probe = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const any = reinterpret_cast<sockaddr*>(&address); // NOLINT(*-reinterpret-cast): as sockets are
    const bool found = bind(probe, any, length) == 0 && getsockname(probe, any, &length) == 0;
    close(probe);
    return found ? ntohs(address.sin_port) : 0;
}

} // namespace

// Parts of the server run as another user.
PrintSystem::PrintSystem(const Desktop& desktop) : desktop_(desktop) {
    fs::permissions(folder_.Path(), fs::perms(0755));
    const std::string port = std::to_string(FreePort());
    StartPrinter(port);
    StartServer();
    desktop_.WaitUntil("the print server runs", [&] { return fs::exists(folder_ / "socket"); });
    desktop_.WaitUntil("the queue is there", [&] {
        return Administer({"lpadmin", "-p", "Laser", "-E", "-v", "ipp://localhost:" + port + "/ipp/print",
                           "-P", (folder_ / "laser.ppd").string()});
    });
}

std::unique_ptr<PrintSystem> PrintSystem::Start(const Desktop& desktop) {
    for (const char* program : {"/usr/sbin/cupsd", "/usr/sbin/ippeveprinter", "/usr/lib/cups/backend/ipp"})
        if (!fs::exists(program))
            return nullptr;
    return std::unique_ptr<PrintSystem>(new PrintSystem(desktop));
}

PrintSystem::~PrintSystem() {
    StopServer();
}

// By its own way: what it has started would stay otherwise.
void PrintSystem::StopServer() {
    if (server_ && !server_->ExitCode()) {
        kill(server_->Pid(), SIGTERM);
        server_->WaitForEnd();
    }
}

// The printer insists on a bus to announce itself on.
void PrintSystem::StartPrinter(const std::string& port) {
    Put(folder_ / "laser.ppd", std::string(kPrinterDescription));
    Put(folder_ / "keep", std::string(kKeep));
    fs::permissions(folder_ / "keep", fs::perms(0755));
    fs::create_directories(folder_ / "kept");
    fs::create_directories(folder_ / "work");
    Environment environment = OwnEnvironment();
    bus_ = std::make_unique<Process>(
        "sh",
        std::vector<std::string>{"-c", "exec dbus-daemon --session --nofork --address=unix:path=" +
                                           (folder_ / "bus").string() + " >/dev/null 2>&1"},
        environment);
    desktop_.WaitUntil("the printer's bus is there", [&] { return fs::exists(folder_ / "bus"); });
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = "unix:path=" + (folder_ / "bus").string();
    environment["KEPT"] = (folder_ / "kept").string();
    printer_ = std::make_unique<Process>(
        "sh",
        std::vector<std::string>{"-c", "cd '" + folder_.Path().string() +
                                           "' && exec /usr/sbin/ippeveprinter -r off -n localhost -p " +
                                           port + " -P laser.ppd -d work -c ./keep Laser >printer.log 2>&1"},
        environment);
}

void PrintSystem::StartServer() {
    const std::string root = folder_.Path().string();
    for (const char* name : {"root", "spool", "state", "cache", "log"})
        fs::create_directories(folder_ / name);
    std::string files = "ServerRoot " + root + "/root\nRequestRoot " + root + "/spool\nStateDir " + root +
                        "/state\nCacheDir " + root + "/cache\n";
    for (const char* log : {"Access", "Error", "Page"})
        files += std::string(log) + "Log " + root + "/log/" + log + "\n";
    Put(folder_ / "files.conf", files);
    Put(folder_ / "server.conf",
        "Listen " + Server() +
            "\nBrowsing No\nWebInterface No\nDefaultAuthType None\n"
            "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
            "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n");
    server_ = std::make_unique<Process>(
        "/usr/sbin/cupsd",
        std::vector<std::string>{"-f", "-c", root + "/server.conf", "-s", root + "/files.conf"},
        OwnEnvironment());
}

Environment PrintSystem::OwnEnvironment() const {
    Environment environment = HomeEnvironment(folder_.Path());
    environment["CUPS_SERVER"] = Server();
    return environment;
}

bool PrintSystem::Administer(const std::vector<std::string>& arguments) const {
    std::string line = "PATH=\"$PATH:/usr/sbin\" exec";
    for (const std::string& argument : arguments)
        line += " '" + argument + "'";
    return Process("sh", {"-c", line + " 2>/dev/null"}, OwnEnvironment()).WaitForEnd() == 0;
}

void PrintSystem::DeleteQueue() {
    if (!Administer({"lpadmin", "-x", "Laser"}))
        throw std::runtime_error("the queue stays");
}

PrintSystem::Job PrintSystem::WaitForJob(int number) const {
    const fs::path kept = folder_ / "kept" / std::to_string(number - 1);
    desktop_.WaitUntil("the printer has a document", [&] { return fs::exists(kept); });
    Job job{{}, kept / "document.pdf"};
    std::ifstream attributes(kept / "attributes");
    for (std::string line; std::getline(attributes, line);)
        job.attributes[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
    return job;
}

} // namespace quillshift::e2e
