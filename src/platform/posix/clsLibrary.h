#pragma once

#include <string>

namespace quillshift {

/// A loaded library, freed when the object ends.
class clsLibrary {
public:
    /// `executable`: name of the program, for the source of errors.
    explicit clsLibrary(std::u16string executable);
    ~clsLibrary();
    clsLibrary(const clsLibrary&) = delete;
    clsLibrary& operator=(const clsLibrary&) = delete;

    /// The library that is loaded; empty for none.
    const std::u16string& Filename() const { return filename_; }
    /// Frees what is held, then loads `name`, unless it is empty. Throws Error 1049 above the object-error
    /// base, with the system's words of up to 256 characters; nothing is held then.
    void SetFilename(std::u16string name);
    /// The system's handle of the library; null while none is loaded.
    void* hModule() const { return module_; }

private:
    void Free();

    std::u16string executable_;
    std::u16string filename_;
    void* module_ = nullptr;
};

} // namespace quillshift
