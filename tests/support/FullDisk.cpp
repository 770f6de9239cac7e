#include <tests/support/FullDisk.h>

namespace korvel::Test {

FullDisk::FullDisk()
    : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN))
{
    getrlimit(RLIMIT_FSIZE, &m_oldLimit);
    rlimit limit = m_oldLimit;
    limit.rlim_cur = 1000;
    setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk()
{
    setrlimit(RLIMIT_FSIZE, &m_oldLimit);
    std::signal(SIGXFSZ, m_oldHandler);
}

} // namespace korvel::Test
