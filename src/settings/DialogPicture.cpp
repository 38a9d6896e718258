#include "settings/DialogPicture.h"

#include "controls/Picture.h"

namespace quillshift {

QWidget* DialogPicture(const Platform& platform, std::u16string_view name) {
    const std::u16string path =
        platform.shell.ProgramFolder() + u"/Data/pictures/" + std::u16string(name) + u".png";
    return new Picture(platform.files.Read(path).bytes);
}

} // namespace quillshift
