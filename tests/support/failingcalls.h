// Makes the system refuse certain calls of this process, as a failing disk would. There is no way back: for a
// child process.
#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>

#include <sys/prctl.h>
#include <sys/syscall.h>

#include <cstddef>
#include <initializer_list>
#include <vector>

// Returns false where the system does not allow that.
inline bool failCalls(std::initializer_list<long> calls, int error)
{
    std::vector<sock_filter> filter{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const long call : calls) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call), 0, 1));
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<unsigned>(error)));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

inline bool failSyncs(int error)
{
    return failCalls({SYS_fsync, SYS_fdatasync}, error);
}

inline bool failRenames(int error)
{
#ifdef SYS_rename
    return failCalls({SYS_rename, SYS_renameat, SYS_renameat2}, error);
#else
    return failCalls({SYS_renameat, SYS_renameat2}, error);
#endif
}
