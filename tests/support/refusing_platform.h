// A platform that refuses: a full disk, and permissions.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

namespace kurv::test {

// Makes files end after so many bytes, as a full disk does.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit limit{bytes, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit m_before{};
  void (*m_handler)(int);
};

// Permissions do not stop root, so root becomes somebody else for a while.
class Unprivileged {
 public:
  Unprivileged() {
    if (m_before == 0) {
      EXPECT_EQ(seteuid(65534), 0);
    }
  }
  ~Unprivileged() { EXPECT_EQ(seteuid(m_before), 0); }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;

 private:
  uid_t m_before = geteuid();
};

}  // namespace kurv::test
