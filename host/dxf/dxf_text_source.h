#pragma once

#include "host/dxf/dxf_tag_source.h"
#include "host/dxf/dxf_text_decoder.h"

namespace dxf {

/// Tags of a text file: a line with the group code, a line with the value. Lines end with LF, CRLF or CR.
class TextSource final : public TagSource
{
public:
    /// `bytes` and `decoder` have to outlive the source.
    TextSource(OdString path, std::string_view bytes, TextDecoder& decoder);

    bool next(OdDbTag& tag) override;
    std::size_t place() const override { return m_line; }
    OdString placeText(std::size_t place) const override;
    std::unique_ptr<TagSource> fromStart() const override;

private:
    enum class ELine
    {
        kCode,
        kNoCode,
        kNothing ///< nothing but blanks up to the end of the file
    };
    ELine readCode();
    bool readValue(OdDbTag& tag);
    bool findNextRecord(char const* wrongLine, wchar_t const* due);
    std::string_view lineBefore(char const* line) const;
    std::string_view readLine();
    bool endLine(char const* at);
    bool readText(OdDbTag& tag);
    bool readReal(OdDbTag& tag);
    bool readInteger(OdDbTag& tag);
    bool readHandle(OdDbTag& tag);
    bool readBinary(OdDbTag& tag);
    bool refuseValue(wchar_t const* what, std::string_view text);

    std::string_view m_bytes;
    TextDecoder& m_decoder;
    std::unique_ptr<TextDecoder> m_ownDecoder; ///< of a source that looks ahead: views of the other one stay whole
    char const* m_at;
    char const* m_end;
    std::size_t m_line = 0;     ///< of the group code read last
    std::size_t m_nextLine = 1; ///< at which m_at stands, when a group code begins there
    int m_code = 0;
    std::string m_binary; ///< bytes of the last binary value
};

} // namespace dxf
