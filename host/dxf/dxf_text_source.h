#pragma once

#include "host/dxf/dxf_tag_source.h"
#include "host/dxf/dxf_text_decoder.h"

namespace dxf {

/// Tags of a text file: a line with the group code, a line with the value. Lines end with LF or CRLF.
class TextSource final : public TagSource
{
public:
    /// `bytes` and `decoder` have to outlive the source.
    TextSource(OdString path, std::string_view bytes, TextDecoder& decoder);

    bool next(OdDbTag& tag) override;
    std::size_t line() const override { return m_line; }
    std::unique_ptr<TagSource> fromStart() const override;

private:
    bool readCode();
    std::string_view readLine();
    bool endLine(char const* at);
    void readText(OdDbTag& tag);
    void readReal(OdDbTag& tag);
    void readInteger(OdDbTag& tag);
    void readHandle(OdDbTag& tag);
    void readBinary(OdDbTag& tag);
    std::int64_t integerOf(std::string_view text) const;
    [[noreturn]] void failValue(wchar_t const* what, std::string_view text) const;

    std::string_view m_bytes;
    TextDecoder& m_decoder;
    char const* m_at;
    char const* m_end;
    std::size_t m_line = 0;
    int m_code = 0;
    std::string m_binary; ///< bytes of the last binary value
};

} // namespace dxf
