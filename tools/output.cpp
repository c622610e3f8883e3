#include "output.h"

#include "failure.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <unistd.h>

namespace {

std::size_t charactersIn(std::string_view text)
{
    std::size_t count = 0;
    for (const char c : text) count += (static_cast<unsigned char>(c) & 0xc0) != 0x80;
    return count;
}

} // namespace

tool_Output& tool_Output::operator<<(int number)
{
    char digits[16];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
    return *this << std::string_view(digits, static_cast<std::size_t>(end.ptr - digits));
}

void tool_Output::left(std::string_view text, std::size_t width)
{
    *this << text;
    const std::size_t used = charactersIn(text);
    if (used < width) m_buffer.append(width - used, ' ');
}

void tool_Output::right(std::string_view text, std::size_t width)
{
    const std::size_t used = charactersIn(text);
    if (used < width) m_buffer.append(width - used, ' ');
    *this << text;
}

void tool_Output::write()
{
    std::size_t done = 0;
    while (done < m_buffer.size()) {
        const ssize_t count = ::write(STDOUT_FILENO, m_buffer.data() + done, m_buffer.size() - done);
        if (count < 0) {
            if (errno == EINTR) continue;
            if (errno == EPIPE) throw tool_BrokenPipe();
            throw tool_Failure(std::string("cannot write: standard output: ") + std::strerror(errno));
        }
        done += static_cast<std::size_t>(count);
    }
    m_buffer.clear();
}

std::string tool_csvCell(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted.push_back('"');
        quoted.push_back(c);
    }
    return quoted + '"';
}
