// No file grows beyond `bytes` while this stands: what a full disk looks like to a writer.
#pragma once

#include <sys/resource.h>

#include <csignal>

class DiskFull {
  public:
    explicit DiskFull(rlim_t bytes) {
        signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit tight = {bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~DiskFull() { setrlimit(RLIMIT_FSIZE, &before); }

  private:
    rlimit before = {};
};
