#include "Fence.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>

namespace quillshift::attack {
namespace {

constexpr std::uint64_t kChanges = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                   LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                                   LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
                                   LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                   LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;

bool Allow(int rules, const std::filesystem::path& folder, std::uint64_t changes) {
    landlock_path_beneath_attr rule{};
    rule.allowed_access = changes;
    rule.parent_fd = open(folder.c_str(), O_PATH | O_CLOEXEC);
    const bool added = syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) == 0;
    close(rule.parent_fd);
    return added;
}

} // namespace

bool FenceIn(const std::filesystem::path& folder) {
    landlock_ruleset_attr wanted{};
    wanted.handled_access_fs = kChanges;
    const int rules =
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &wanted, sizeof wanted.handled_access_fs, 0));
    const bool fenced =
        rules >= 0 && Allow(rules, folder, kChanges) && Allow(rules, "/dev", LANDLOCK_ACCESS_FS_WRITE_FILE) &&
        prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && syscall(SYS_landlock_restrict_self, rules, 0) == 0;
    close(rules);
    return fenced;
}

} // namespace quillshift::attack
