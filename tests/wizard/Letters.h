#pragma once

#include "harness/Iconv.h"
#include "harness/TemporaryFolder.h"

namespace quillshift::wizard {

inline const std::string text = "Старая мельница стоит у самой воды, ещё и мелет.\r\n";
inline const std::string koi = Iconv(text, "UTF-8", "KOI8-R");
inline const std::string twice = Iconv(koi, "CP866", "UTF-8");
inline const std::string few = "\xF7\xCF\xD4 \xF7"; // too few letters to be sure

/// A folder of letters, and the state of their owner beside it.
class Letters {
protected:
    Letters() {
        std::filesystem::create_directory(folder_);
        setenv("XDG_STATE_HOME", (root_ / "state").c_str(), 1);
    }
    ~Letters() { unsetenv("XDG_STATE_HOME"); }
    std::string Make(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories((folder_ / name).parent_path());
        Put(folder_ / name, bytes);
        return folder_ / name;
    }

    TemporaryFolder root_;
    std::filesystem::path folder_ = root_ / "letters";
};

} // namespace quillshift::wizard
