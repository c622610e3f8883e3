#include "platform/text/msg_StringBase.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>
#include <stdexcept>
#include <string_view>

namespace {

constexpr std::int64_t longestText = 0x7fffffff - 17;

int clampTo(int value, int upper) { return std::clamp(value, 0, upper); }

// Length of a C text of which at most `limit` characters count.
int lengthOf(const char* text, int limit)
{
    if (!text || limit <= 0) {
        return 0;
    }
    const std::size_t n =
        limit == msg_StringBase::toEnd ? std::strlen(text) : strnlen(text, static_cast<std::size_t>(limit));
    if (n > static_cast<std::size_t>(longestText)) {
        throw std::length_error("text too long");
    }
    return static_cast<int>(n);
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool isAmong(char c, const char* characters) { return c != '\0' && std::strchr(characters, c) != nullptr; }

std::size_t patternLength(const char* text, int limit)
{
    if (!text || limit <= 0) {
        return 0;
    }
    return limit == msg_StringBase::toEnd ? std::strlen(text) : strnlen(text, static_cast<std::size_t>(limit));
}

int positionOf(std::string_view text, std::string_view pattern, int start)
{
    const auto found = text.find(pattern, static_cast<std::size_t>(clampTo(start, static_cast<int>(text.size()))));
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

int lastPositionOf(std::string_view text, std::string_view pattern, int start)
{
    if (start < 0) {
        start = 0;
    }
    const auto found = text.rfind(pattern, static_cast<std::size_t>(start));
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

} // namespace

msg_StringBase::msg_StringBase(const char* text) : msg_StringBase(text, toEnd) {}

msg_StringBase::msg_StringBase(const char* text, int length) { set(text, lengthOf(text, length)); }

msg_StringBase::msg_StringBase(int number)
{
    char buffer[16];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    set(buffer, end - buffer);
}

msg_StringBase::msg_StringBase(unsigned int number)
{
    char buffer[16];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    set(buffer, end - buffer);
}

msg_StringBase::msg_StringBase(double number)
{
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    set(buffer, end - buffer);
}

msg_StringBase& msg_StringBase::operator=(const msg_StringBase& other) noexcept
{
    if (this != &other) {
        if (other.m_body) {
            ++other.m_body->holders;
        }
        release();
        m_text = other.m_text;
        m_body = other.m_body;
    }
    return *this;
}

msg_StringBase& msg_StringBase::operator=(msg_StringBase&& other) noexcept
{
    if (this != &other) {
        release();
        m_text = other.m_text;
        m_body = other.m_body;
        other.m_text = nullptr;
        other.m_body = nullptr;
    }
    return *this;
}

msg_StringBase& msg_StringBase::operator=(const char* text) { return *this = msg_StringBase(text); }

msg_StringBase& msg_StringBase::append(const msg_StringBase& text)
{
    if (!m_body) {
        return *this = text;
    }
    return splice(length(), 0, text.cStr(), text.length());
}

msg_StringBase& msg_StringBase::append(const char* text) { return splice(length(), 0, text, lengthOf(text, toEnd)); }

msg_StringBase& msg_StringBase::append(const char* text, int count)
{
    return splice(length(), 0, text, lengthOf(text, count));
}

msg_StringBase& msg_StringBase::append(const msg_StringBase& text, int position, int count)
{
    return insert(length(), text, position, count);
}

int msg_StringBase::compare(const msg_StringBase& other) const noexcept
{
    return m_body == other.m_body ? 0 : compare(other.cStr());
}

int msg_StringBase::compare(const char* other) const noexcept
{
    const int order = std::strcmp(cStr(), other ? other : "");
    return (order > 0) - (order < 0);
}

msg_StringBase& msg_StringBase::erase(int position, int count) { return splice(position, count, nullptr, 0); }

int msg_StringBase::find(const char* pattern, int start) const noexcept { return find(pattern, start, toEnd); }

int msg_StringBase::find(const msg_StringBase& pattern, int start) const noexcept
{
    return positionOf({cStr(), std::size_t(length())}, {pattern.cStr(), std::size_t(pattern.length())}, start);
}

int msg_StringBase::find(const char* pattern, int start, int count) const noexcept
{
    return positionOf({cStr(), std::size_t(length())}, {pattern ? pattern : "", patternLength(pattern, count)}, start);
}

int msg_StringBase::rFind(const char* pattern, int start) const noexcept { return rFind(pattern, start, toEnd); }

int msg_StringBase::rFind(const msg_StringBase& pattern, int start) const noexcept
{
    return lastPositionOf({cStr(), std::size_t(length())}, {pattern.cStr(), std::size_t(pattern.length())}, start);
}

int msg_StringBase::rFind(const char* pattern, int start, int count) const noexcept
{
    return lastPositionOf({cStr(), std::size_t(length())}, {pattern ? pattern : "", patternLength(pattern, count)},
                          start);
}

msg_StringBase& msg_StringBase::insert(int position, const char* text, int count)
{
    return splice(position, 0, text, lengthOf(text, count));
}

msg_StringBase& msg_StringBase::insert(int position, const msg_StringBase& text)
{
    return splice(position, 0, text.cStr(), text.length());
}

msg_StringBase& msg_StringBase::insert(int position, const msg_StringBase& text, int start, int count)
{
    return replace(position, 0, text, start, count);
}

msg_StringBase& msg_StringBase::replace(int position, int count, const char* text)
{
    return splice(position, count, text, lengthOf(text, toEnd));
}

msg_StringBase& msg_StringBase::replace(int position, int count, const msg_StringBase& text)
{
    return splice(position, count, text.cStr(), text.length());
}

msg_StringBase& msg_StringBase::replace(int position, int count, const msg_StringBase& text, int start, int textLength)
{
    start = clampTo(start, text.length());
    return splice(position, count, text.cStr() + start, clampTo(textLength, text.length() - start));
}

msg_StringBase& msg_StringBase::replace(int position, int count, const char* text, int textLength)
{
    return splice(position, count, text, lengthOf(text, textLength));
}

msg_StringBase& msg_StringBase::leftTrim(const char* characters)
{
    if (!characters) {
        return *this;
    }
    int kept = 0;
    while (kept < length() && isAmong(m_text[kept], characters)) {
        ++kept;
    }
    return erase(0, kept);
}

msg_StringBase& msg_StringBase::rightTrim(const char* characters)
{
    if (!characters) {
        return *this;
    }
    int kept = length();
    while (kept > 0 && isAmong(m_text[kept - 1], characters)) {
        --kept;
    }
    return erase(kept);
}

msg_StringBase& msg_StringBase::trim(const char* characters)
{
    rightTrim(characters);
    return leftTrim(characters);
}

msg_StringBase msg_StringBase::substr(int position, int count) const
{
    position = clampTo(position, length());
    count = clampTo(count, length() - position);
    if (count == length()) {
        return *this;
    }
    msg_StringBase part;
    part.set(cStr() + position, count);
    return part;
}

msg_StringBase& msg_StringBase::toLower()
{
    unshare();
    std::transform(m_text, m_text + length(), m_text, lower);
    return *this;
}

msg_StringBase& msg_StringBase::toUpper()
{
    unshare();
    std::transform(m_text, m_text + length(), m_text, upper);
    return *this;
}

msg_StringBase& msg_StringBase::capitalize()
{
    if (!empty()) {
        unshare();
        m_text[0] = upper(m_text[0]);
    }
    return *this;
}

msg_StringBase& msg_StringBase::uncapitalize()
{
    if (!empty()) {
        unshare();
        m_text[0] = lower(m_text[0]);
    }
    return *this;
}

msg_StringBase& msg_StringBase::reverse()
{
    unshare();
    std::reverse(m_text, m_text + length());
    return *this;
}

char msg_StringBase::operator[](int index) const noexcept
{
    return index >= 0 && index < length() ? m_text[index] : '\0';
}

char& msg_StringBase::operator[](int index)
{
    if (index < 0 || index >= length()) {
        static thread_local char spare;
        spare = '\0';
        return spare;
    }
    unshare();
    return m_text[index];
}

msg_StringBase::Body* msg_StringBase::newBody(std::int64_t length, std::int64_t capacity)
{
    void* memory = ::operator new(sizeof(Body) + static_cast<std::size_t>(capacity) + 1);
    auto* body = new (memory) Body{1, static_cast<std::uint32_t>(length), static_cast<std::uint32_t>(capacity)};
    charactersOf(body)[length] = '\0';
    return body;
}

void msg_StringBase::adopt(Body* body) noexcept
{
    release();
    m_body = body;
    m_text = charactersOf(body);
}

void msg_StringBase::release() noexcept
{
    letGo();
    m_body = nullptr;
    m_text = nullptr;
}

void msg_StringBase::deleteBody(Body* body) noexcept { ::operator delete(body); }

void msg_StringBase::set(const char* text, std::int64_t length)
{
    if (length > 0) {
        Body* body = newBody(length, length);
        std::memcpy(charactersOf(body), text, static_cast<std::size_t>(length));
        adopt(body);
    }
}

void msg_StringBase::unshare()
{
    if (m_body && m_body->holders > 1) {
        Body* body = newBody(m_body->length, m_body->length);
        std::memcpy(charactersOf(body), m_text, m_body->length);
        adopt(body);
    }
}

// The one place where a text changes its length. The inserted text may be a part of this string, so such an
// insertion is done into a new body and the old one let go last.
msg_StringBase& msg_StringBase::splice(int position, int count, const char* text, int added)
{
    const int old = length();
    position = clampTo(position, old);
    count = clampTo(count, old - position);
    if (count == 0 && added == 0) {
        return *this;
    }
    const std::int64_t result = std::int64_t(old) - count + added;
    if (result > longestText) {
        throw std::length_error("text too long");
    }
    if (result == 0) {
        release();
        return *this;
    }
    const auto tail = static_cast<std::size_t>(old - position - count);
    const bool own = added > 0 && m_text && text >= m_text && text <= m_text + old;
    if (m_body && m_body->holders == 1 && !own && result <= m_body->capacity) {
        std::memmove(m_text + position + added, m_text + position + count, tail);
        if (added > 0) {
            std::memcpy(m_text + position, text, static_cast<std::size_t>(added));
        }
        m_body->length = static_cast<std::uint32_t>(result);
        m_text[result] = '\0';
        return *this;
    }
    // Growing by half keeps a row of appends linear; a first text gets what it needs and no more.
    const std::int64_t room = m_body ? std::min(std::max(result, std::int64_t(old) + old / 2), longestText) : result;
    Body* body = newBody(result, room);
    char* to = charactersOf(body);
    if (position > 0) {
        std::memcpy(to, m_text, static_cast<std::size_t>(position));
    }
    if (added > 0) {
        std::memcpy(to + position, text, static_cast<std::size_t>(added));
    }
    if (tail > 0) {
        std::memcpy(to + position + added, m_text + position + count, tail);
    }
    adopt(body);
    return *this;
}
