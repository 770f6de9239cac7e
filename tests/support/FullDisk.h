#pragma once

#include <QtGlobal>

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
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_oldLimit{};
    void (*m_oldHandler)(int) = nullptr;
};

} // namespace korvel::Test
