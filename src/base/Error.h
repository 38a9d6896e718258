#pragma once

#include <exception>
#include <string>

namespace quillshift {

/// A failure whose number and description a person may be shown. Thrown only where the number is a contract.
class Error : public std::exception {
public:
    Error(int number, std::u16string source, std::u16string description)
        : number_(number), source_(std::move(source)), description_(std::move(description)) {}

    int Number() const { return number_; }
    const std::u16string& Source() const { return source_; }
    const std::u16string& Description() const { return description_; }
    const char* what() const noexcept override { return "quillshift::Error"; }

private:
    int number_;
    std::u16string source_;
    std::u16string description_;
};

} // namespace quillshift
