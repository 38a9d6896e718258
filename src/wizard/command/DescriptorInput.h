#pragma once

#include <streambuf>
#include <vector>

namespace quillshift::wizard {

/// What comes in through an open file, as it comes: nobody waits for more than there is. A failure to read is
/// thrown, which the stream over it takes for bad.
class DescriptorInput : public std::streambuf {
public:
    explicit DescriptorInput(int fd);

protected:
    int_type underflow() override;

private:
    int fd_;
    std::vector<char> buffer_;
};

/// Lets a pipe hold a megabyte, where that is allowed.
void EnlargePipe(int fd);

} // namespace quillshift::wizard
