#include "host/dxf/dxf_code_page.h"

#include "host/root/od_error.h"

#include <array>
#include <cerrno>

namespace dxf {

namespace {

struct Row
{
    std::string_view name;
    char const* iconvName;
};

// clang-format off
constexpr Row s_rows[] = {
    {"ANSI_874",  "CP874"},  {"ANSI_932",  "CP932"},  {"ANSI_936",  "CP936"},  {"ANSI_949",  "CP949"},
    {"ANSI_950",  "CP950"},  {"ANSI_1250", "CP1250"}, {"ANSI_1251", "CP1251"}, {"ANSI_1252", "CP1252"},
    {"ANSI_1253", "CP1253"}, {"ANSI_1254", "CP1254"}, {"ANSI_1255", "CP1255"}, {"ANSI_1256", "CP1256"},
    {"ANSI_1257", "CP1257"}, {"ANSI_1258", "CP1258"}, {"ANSI_1361", "CP1361"},
};
// clang-format on

char const* iconvNameOf(std::string_view name)
{
    for (Row const& row : s_rows)
        if (row.name == name)
            return row.iconvName;
    return "CP1252";
}

} // namespace

CodePage::CodePage(std::string_view name) : m_converter(::iconv_open("UTF-8", iconvNameOf(name)))
{
    if (m_converter == reinterpret_cast<iconv_t>(-1)) // NOLINT(performance-no-int-to-ptr): how iconv says no
        throw OdError(eUnsupportedFormat, odFormat(L"This system cannot convert text from the code page %ls",
                                                   OdString::fromUtf8(name).c_str()));
}

CodePage::~CodePage()
{
    ::iconv_close(m_converter);
}

void CodePage::appendUtf8(std::string_view text, std::string& utf8)
{
    constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
    char* from = const_cast<char*>(text.data()); // the interface of iconv; the text is only read
    std::size_t left = text.size();
    while (left > 0) {
        std::array<char, 256> buffer;
        char* to = buffer.data();
        std::size_t room = buffer.size();
        std::size_t const result = ::iconv(m_converter, &from, &left, &to, &room);
        utf8.append(buffer.data(), buffer.size() - room);
        if (result == static_cast<std::size_t>(-1) && errno != E2BIG) {
            utf8 += kReplacement;
            ++from;
            --left;
        }
    }
    ::iconv(m_converter, nullptr, nullptr, nullptr, nullptr);
}

} // namespace dxf
