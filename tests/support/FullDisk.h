#pragma once

#include <csignal>

#include <sys/resource.h>

namespace korvel::Test {

/// As long as it lives, no file of this process can grow beyond 1000 bytes: writes fail where a full disk
/// would refuse them, after some bytes.
class FullDisk
{
public:
    FullDisk();
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_oldLimit{};
    void (*m_oldHandler)(int) = nullptr;
};

} // namespace korvel::Test
