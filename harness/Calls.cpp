#include "harness/Calls.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillshift {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPatience = std::chrono::seconds(20);

// Not every machine has the older ones.
constexpr int kCalls[] = {
#ifdef SYS_open
    SYS_open,      SYS_creat,     SYS_stat,        SYS_lstat,     SYS_rename,     SYS_link,
    SYS_unlink,    SYS_mkdir,     SYS_readlink,    SYS_chmod,     SYS_access,
#endif
    SYS_openat,    SYS_fstat,     SYS_newfstatat,  SYS_statx,     SYS_read,       SYS_pread64,
    SYS_write,     SYS_pwrite64,  SYS_writev,      SYS_lseek,     SYS_fsync,      SYS_fdatasync,
    SYS_close,     SYS_ftruncate, SYS_fallocate,   SYS_renameat2, SYS_renameat,   SYS_linkat,
    SYS_unlinkat,  SYS_mkdirat,   SYS_readlinkat,  SYS_faccessat, SYS_fchmod,     SYS_fchmodat,
    SYS_fchown,    SYS_flock,     SYS_fcntl,       SYS_utimensat, SYS_getdents64, SYS_flistxattr,
    SYS_fgetxattr, SYS_fsetxattr, SYS_fremovexattr};

// From now on each of these calls waits for the one who holds the answer.
int Listen() {
    std::vector<sock_filter> program{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const int call : kCalls) {
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 1));
        program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    return static_cast<int>(
        syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &filter));
}

// Hands an open file to another process.
struct Parcel {
    alignas(cmsghdr) char room[CMSG_SPACE(sizeof(int))] = {};
    char byte = 0;
    iovec part{&byte, 1};
    msghdr message{};

    Parcel() {
        message.msg_iov = &part;
        message.msg_iovlen = 1;
        message.msg_control = room;
        message.msg_controllen = sizeof room;
    }
    void Send(int socket, int file) {
        cmsghdr* header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(sizeof file);
        std::memcpy(CMSG_DATA(header), &file, sizeof file);
        sendmsg(socket, &message, 0);
    }
    int Receive(int socket) {
        int file = -1;
        if (recvmsg(socket, &message, 0) == 1 && CMSG_FIRSTHDR(&message) != nullptr)
            std::memcpy(&file, CMSG_DATA(CMSG_FIRSTHDR(&message)), sizeof file);
        return file;
    }
};

bool Strikes(const Fault& fault, int call) {
    if (fault.kind == Fault::Kind::FailuresFromThere)
        return call >= fault.at;
    return fault.kind != Fault::Kind::None && call == fault.at;
}

// Answers the calls until there are no more.
void Watch(pid_t process, int listener, const Fault& fault, Ended& ended) {
    const auto end = Clock::now() + kPatience;
    pollfd arrival{listener, POLLIN, 0};
    while (!ended.killed) {
        const int events = poll(&arrival, 1, 1000);
        if (events == 0 && Clock::now() < end)
            continue;
        ended.held = events == 0;
        if (ended.held)
            kill(process, SIGKILL);
        if (events != 1 || (arrival.revents & POLLIN) == 0)
            return;
        seccomp_notif asked{};
        if (ioctl(listener, SECCOMP_IOCTL_NOTIF_RECV, &asked) != 0)
            continue;
        seccomp_notif_resp answer{};
        answer.id = asked.id;
        const bool strikes = Strikes(fault, ended.calls++);
        if (strikes && ended.struck < 0)
            ended.struck = asked.data.nr;
        ended.killed = strikes && fault.kind == Fault::Kind::Kill;
        if (ended.killed)
            kill(process, SIGKILL);
        else if (strikes && fault.kind == Fault::Kind::Act)
            fault.act();
        if (ended.killed || !strikes || fault.kind == Fault::Kind::Act)
            answer.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
        else
            answer.error = -fault.error;
        if (!ended.killed)
            ioctl(listener, SECCOMP_IOCTL_NOTIF_SEND, &answer);
    }
}

} // namespace

Ended RunWithFault(const std::function<void()>& prepare, const std::function<int()>& work,
                   const Fault& fault) {
    int sockets[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
        throw std::runtime_error("no pair of sockets");
    const pid_t process = fork();
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        prepare();
        Parcel().Send(sockets[1], Listen());
        _exit(work());
    }
    close(sockets[1]);
    const int listener = Parcel().Receive(sockets[0]);
    close(sockets[0]);
    Ended ended;
    const auto start = Clock::now();
    if (listener >= 0)
        Watch(process, listener, fault, ended);
    ended.took = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
    int status = 0;
    waitpid(process, &status, 0);
    ended.code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    close(listener);
    if (listener < 0)
        throw std::runtime_error("the system lets nobody watch the calls of a process");
    return ended;
}

} // namespace quillshift
