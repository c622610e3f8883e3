#include "progress.h"

#include <cstdio>
#include <string>
#include <unistd.h>

namespace {
constexpr int barWidth = 40;
}

tool_Progress::tool_Progress(const char* what, int total)
    : m_what(what), m_total(total > 0 ? total : 1), m_isTerminal(isatty(STDERR_FILENO) == 1)
{
    show(0);
}

tool_Progress::~tool_Progress()
{
    if (m_isTerminal) std::fputs("\r\033[K", stderr);
}

void tool_Progress::show(int done)
{
    if (!m_isTerminal) return;
    // In thousandths: finer steps would not move a character.
    const int part = static_cast<int>(1000LL * done / m_total);
    if (part == m_drawn) return;
    m_drawn = part;
    const int filled = part * barWidth / 1000;
    std::string bar(static_cast<std::size_t>(filled), '#');
    bar.append(static_cast<std::size_t>(barWidth - filled), ' ');
    std::fprintf(stderr, "\r%s [%s] %d of %d", m_what, bar.c_str(), done, m_total);
    std::fflush(stderr);
}
