#include "wizard/command/DescriptorInput.h"

#include <cerrno>
#include <fcntl.h>
#include <ios>
#include <unistd.h>

namespace quillshift::wizard {

namespace {

constexpr std::size_t bufferBytes = 128 << 10;
constexpr int pipeBytes = 1 << 20;

} // namespace

DescriptorInput::DescriptorInput(int fd) : fd_(fd), buffer_(bufferBytes) {}

DescriptorInput::int_type DescriptorInput::underflow() {
    ssize_t count = 0;
    do
        count = read(fd_, buffer_.data(), buffer_.size());
    while (count < 0 && errno == EINTR);
    if (count < 0)
        throw std::ios_base::failure("read");
    setg(buffer_.data(), buffer_.data(), buffer_.data() + count);
    return count == 0 ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

void EnlargePipe(int fd) {
    fcntl(fd, F_SETPIPE_SZ, pipeBytes);
}

} // namespace quillshift::wizard
