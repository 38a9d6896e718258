#pragma once

#include "harness/Desktop.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillshift::e2e {

/// The print server on a socket of its own, with the queue "Laser" to a printer that takes sheets of A4 and
/// A5, can't print on the outer 10 mm, and keeps what it is given.
class PrintSystem {
public:
    /// Null on a machine that has no such server or printer.
    static std::unique_ptr<PrintSystem> Start(const Desktop& desktop);
    ~PrintSystem();
    PrintSystem(const PrintSystem&) = delete;
    PrintSystem& operator=(const PrintSystem&) = delete;

    /// What a program has to find in its environment as CUPS_SERVER.
    std::string Server() const { return (folder_ / "socket").string(); }
    void StopServer();
    void DeleteQueue();

    struct Job {
        std::map<std::string, std::string> attributes; ///< by their names in the printer's environment
        std::filesystem::path document;
    };
    /// Waits until so many jobs have arrived, and gives the last one.
    Job WaitForJob(int number) const;

private:
    explicit PrintSystem(const Desktop& desktop);
    void StartServer();
    void StartPrinter(const std::string& port);
    bool Administer(const std::vector<std::string>& arguments) const;
    Environment OwnEnvironment() const;

    const Desktop& desktop_;
    TemporaryFolder folder_;
    std::unique_ptr<Process> bus_; ///< that the printer announces itself on, to nobody
    std::unique_ptr<Process> printer_;
    std::unique_ptr<Process> server_;
};

} // namespace quillshift::e2e
