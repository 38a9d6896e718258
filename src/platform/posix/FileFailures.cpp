#include "platform/posix/FileFailures.h"

#include "base/Utf8.h"

#include <cerrno>

namespace quillshift {

std::pair<std::string, std::string> SplitPath(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return {".", path};
    return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

FileFailure Explain(int error, const std::string& path) {
    struct stat folder {};
    switch (error) {
    case ENOENT:
        if (stat(SplitPath(path).first.c_str(), &folder) == 0 && S_ISDIR(folder.st_mode))
            return {53, u"Файл не найден"};
        [[fallthrough]];
    case ENOTDIR:
        return {76, u"Папка не найдена"};
    case EACCES:
    case EPERM:
        return {70, u"Нет прав доступа к файлу"};
    case EROFS:
        return {70, u"Диск доступен только для чтения"};
    case ENOSPC:
        return {61, u"На диске нет места"};
    case EDQUOT:
        return {61, u"Исчерпана дисковая квота"};
    case EFBIG:
        return {61, u"Файл больше, чем разрешено на этом диске"};
    case EISDIR:
        return {75, u"Это не обычный файл, а папка"};
    case ENAMETOOLONG:
        return {75, u"Слишком длинное имя файла"};
    case ELOOP:
        return {75, u"Ссылки на файл образуют круг"};
    case ENXIO:
    case EPIPE:
        return {75, u"Канал или устройство никто не читает"};
    case ETIMEDOUT:
        return {75, u"Канал или устройство не принимает данные"};
    case EBUSY:
        return {75, u"Файл занят другой программой"};
    case ESTALE:
        return {75, u"На месте файла уже стоит другой"};
    case EAGAIN:
        return {75, u"Читать из файла сейчас нечего"};
    case EIO:
        return {75, u"Ошибка чтения или записи диска"};
    default:
        return {75, u"Ошибка доступа к файлу, код " + FromUtf8(std::to_string(error))};
    }
}

std::optional<FileFailure> RefuseUnlessRegular(const struct stat& info) {
    const auto refuse = [](std::u16string_view what) {
        return FileFailure{75, u"Это не обычный файл, а " + std::u16string(what)};
    };
    switch (info.st_mode & S_IFMT) {
    case S_IFREG:
        return std::nullopt;
    case S_IFDIR:
        return refuse(u"папка");
    case S_IFIFO:
        return refuse(u"канал");
    case S_IFSOCK:
        return refuse(u"сокет");
    default:
        return refuse(u"устройство");
    }
}

std::optional<FileFailure> ToNative(std::u16string_view path, std::string& native) {
    if (path.empty())
        return FileFailure{75, u"Не задано имя файла"};
    native = ToUtf8(path);
    if (path.find(u'\0') != std::u16string_view::npos || FromUtf8(native) != path)
        return FileFailure{53, u"Файл не найден: такого имени не бывает"};
    return std::nullopt;
}

} // namespace quillshift
