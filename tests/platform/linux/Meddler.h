// Somebody else at work on the same files, at the very moment that does most harm.
#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <functional>
#include <future>
#include <thread>
#include <vector>

namespace tarnwell::platform {

// Does the work on a thread of its own, where the kernel holds each of these system calls up until
// `meddle` has been told the second argument, for calls of the "at" family the name. False where
// the kernel does not do that.
inline bool RunMeddled(const std::vector<unsigned>& calls,
                       const std::function<void(const char* name)>& meddle,
                       const std::function<void()>& work) {
  std::promise<int> made;
  std::thread worker([&] {
    std::vector<sock_filter> steps{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const unsigned call : calls) {
      steps.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
      steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    }
    steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(steps.size()), steps.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const int heard = static_cast<int>(
        syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program));
    made.set_value(heard);
    if (heard >= 0) work();
  });
  const int heard = made.get_future().get();
  pollfd wait{heard, POLLIN, 0};
  while (heard >= 0 && poll(&wait, 1, -1) == 1 && (wait.revents & POLLIN) != 0) {
    seccomp_notif call{};
    if (ioctl(heard, SECCOMP_IOCTL_NOTIF_RECV, &call) != 0) continue;
    meddle(reinterpret_cast<const char*>(call.data.args[1]));
    seccomp_notif_resp goOn{call.id, 0, 0, SECCOMP_USER_NOTIF_FLAG_CONTINUE};
    ioctl(heard, SECCOMP_IOCTL_NOTIF_SEND, &goOn);
  }
  worker.join();
  close(heard);
  return heard >= 0;
}

}  // namespace tarnwell::platform
