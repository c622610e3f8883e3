#ifndef OUTPUT_H
#define OUTPUT_H

#include <cstddef>
#include <string>
#include <string_view>

/// Standard output, gathered into blocks. Every byte that the system does not take is an error: a listing cut
/// short by a full disk must not look complete.
class tool_Output
{
public:
    tool_Output() { m_buffer.reserve(blockSize); }

    tool_Output& operator<<(std::string_view text)
    {
        m_buffer.append(text);
        if (m_buffer.size() >= blockSize) write();
        return *this;
    }
    tool_Output& operator<<(char character)
    {
        m_buffer.push_back(character);
        return *this;
    }
    tool_Output& operator<<(int number);

    /// Puts `text` into a column of `width` characters, counted as UTF-8 characters.
    void left(std::string_view text, std::size_t width);
    void right(std::string_view text, std::size_t width);

    /// Hands over what is left. Raises tool_Failure, or tool_BrokenPipe when the reader is gone.
    void finish() { write(); }

private:
    static constexpr std::size_t blockSize = 1 << 16;

    void write();

    std::string m_buffer;
};

/// A cell of a comma-separated table: in quotes where it has to be.
std::string tool_csvCell(const std::string& text);

#endif
