#pragma once

#include "host/dxf/dxf_tag_source.h"
#include "host/dxf/dxf_text_decoder.h"

namespace dxf {

/// Tags of a binary file. After bytes that cannot be tags it goes on at the next bytes that look like the
/// beginning of a record.
class BinarySource final : public TagSource
{
public:
    /// `bytes`, which begin with the sentinel of binary files, and `decoder` have to outlive the source.
    BinarySource(OdString path, std::string_view bytes, TextDecoder& decoder);

    bool next(OdDbTag& tag) override;
    std::size_t place() const override { return static_cast<std::size_t>(m_tag - m_bytes.data()); }
    OdString placeText(std::size_t place) const override;
    std::unique_ptr<TagSource> fromStart() const override;

private:
    enum class EResult
    {
        kTag,
        kLeftOut, ///< the value cannot be; the next tag follows
        kNoTag,   ///< these bytes are no tag
        kCutOff   ///< the file ends within the tag
    };

    std::size_t left() const { return static_cast<std::size_t>(m_end - m_at); }
    EResult readTag(OdDbTag& tag);
    EResult readCode();
    EResult readName(OdDbTag& tag);
    EResult readText(OdDbTag& tag);
    EResult readHandle(OdDbTag& tag);
    EResult readReal(OdDbTag& tag);
    template <class Number>
    EResult readInteger(OdDbTag& tag);
    EResult readBytes(OdDbTag& tag);
    EResult tell(EResult result, bool breaksRecord, wchar_t const* format);
    EResult tellCutOff();
    bool findRecord();

    std::string_view m_bytes;
    TextDecoder& m_decoder;
    std::unique_ptr<TextDecoder> m_ownDecoder; ///< of a source that looks ahead: views of the other one stay whole
    char const* m_at;
    char const* m_end;
    char const* m_tag; ///< the group code that was read last
    int m_code = 0;
    bool m_hasShortCodes;
};

} // namespace dxf
