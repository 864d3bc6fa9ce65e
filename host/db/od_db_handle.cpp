#include "host/db/od_db_handle.h"

#include <charconv>

namespace {

template <class Text>
std::uint64_t parsed(Text const& text, std::size_t length)
{
    if (length == 0 || length > 16)
        return 0;
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < length; ++i) {
        auto const ch = text[i];
        unsigned digit = 16;
        if (ch >= '0' && ch <= '9')
            digit = static_cast<unsigned>(ch - '0');
        else if (ch >= 'A' && ch <= 'F')
            digit = static_cast<unsigned>(ch - 'A') + 10;
        else if (ch >= 'a' && ch <= 'f')
            digit = static_cast<unsigned>(ch - 'a') + 10;
        if (digit > 15)
            return 0;
        value = value << 4 | digit;
    }
    return value;
}

} // namespace

OdDbHandle::OdDbHandle(OdString const& text) : m_value(parsed(text, text.getLength())) {}

OdDbHandle::OdDbHandle(std::string_view text) : m_value(parsed(text, text.size())) {}

bool OdDbHandle::isHandle(OdString const& text)
{
    std::size_t const length = text.getLength();
    return parsed(text, length) != 0 || (length > 0 && length <= 16 && text == OdString(length, L'0'));
}

std::string_view OdDbHandle::write(char (&buffer)[16]) const
{
    char* const end = std::to_chars(buffer, buffer + 16, m_value, 16).ptr;
    for (char* p = buffer; p != end; ++p)
        if (*p >= 'a')
            *p = static_cast<char>(*p - 'a' + 'A');
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

OdString OdDbHandle::ascii() const
{
    char buffer[16];
    return OdString::fromUtf8(write(buffer));
}
