#include "platform/posix/clsLibrary.h"

#include "base/Error.h"
#include "base/Utf8.h"

#include <dlfcn.h>

#include <utility>

namespace quillshift {
namespace {

constexpr int kCantLoad = -2147221504 + 1049;
constexpr std::size_t kLongestText = 256;

} // namespace

clsLibrary::clsLibrary(std::u16string executable) : executable_(std::move(executable)) {}

clsLibrary::~clsLibrary() {
    Free();
}

void clsLibrary::SetFilename(std::u16string name) {
    Free();
    if (name.empty())
        return;
    module_ = ::dlopen(ToUtf8(name).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module_) {
        const char* const reason = ::dlerror();
        throw Error(kCantLoad, executable_ + u".cLibrary",
                    FromUtf8(reason ? reason : "").substr(0, kLongestText));
    }
    filename_ = std::move(name);
}

void clsLibrary::Free() {
    if (module_)
        ::dlclose(module_);
    module_ = nullptr;
    filename_.clear();
}

} // namespace quillshift
