#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>
#include <utility>

namespace quillshift {

/// An open file that closes itself. `Close` tells what closing said, which for a network drive may be the
/// first word of a failed write.
class OpenFile {
public:
    explicit OpenFile(int fd = -1) : fd_(fd) {}
    OpenFile(OpenFile&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~OpenFile() { Close(); }

    explicit operator bool() const { return fd_ >= 0; }
    int Fd() const { return fd_; }
    int Close() {
        const int fd = std::exchange(fd_, -1);
        return fd >= 0 && close(fd) != 0 && errno != EINTR ? errno : 0;
    }

private:
    int fd_;
};

/// A file with a name of its own, removed at the end unless it was renamed or kept, and locked until then so
/// that nobody takes it for a leftover. The system gives the mode, so that a new file gets what the user's
/// mask and the folder's access list say.
class SideFile {
public:
    SideFile(const std::string& folder, const std::string& name, mode_t mode);
    ~SideFile() {
        if (error_ == 0 && !kept_)
            unlink(path_.c_str());
    }
    SideFile(const SideFile&) = delete;
    SideFile& operator=(const SideFile&) = delete;

    int Error() const { return error_; }
    const std::string& Path() const { return path_; }
    OpenFile& File() { return file_; }
    void Keep() { kept_ = true; }

private:
    std::string path_;
    OpenFile file_;
    OpenFile lock_; // the same open file, and so its lock, also when `file_` has been closed
    int error_ = 0;
    bool kept_ = false;
};

/// Removes the side files of `name` that a killed program has left in the folder.
void RemoveLeftovers(const std::string& folder, const std::string& name);

/// To be called once at start: keeps the signals of a failed write from ending the program. The error number
/// says it too.
void SurviveFailedWrites();

// The functions below answer with an error number, 0 for success.

/// Keeps other copies of the program from writing the file until it is closed. EBUSY if one of them takes
/// more than a second; a disk that knows no locks is no failure.
int Lock(int fd);
/// Follows the links of a path to the name of the file itself, which need not be there yet.
int FollowLinks(std::string& path);
/// Writes from where the file stands. What accepts nothing for a few seconds is given up.
int WriteAll(int fd, std::string_view bytes);
/// Reads all of a file, wherever it stands.
int ReadAll(int fd, std::string& bytes);
/// Waits until the disk has it.
int Flush(int fd);
/// Makes the names in a folder last through a power cut.
void FlushFolder(const std::string& folder);
/// Replaces the contents of `to` by those of `from`.
int CopyContents(int from, int to);
/// Replaces the contents by `bytes`.
int PutContents(int fd, std::string_view bytes);
/// Takes the room a file will need, so that a full disk shows before a byte of it has changed.
int Reserve(int fd, off_t size, off_t oldSize);

/// Copies the extended attributes that can be copied. False if the access list is none of them: without it
/// the mode would mean something else.
bool CopyAttributes(int from, int to);

} // namespace quillshift
