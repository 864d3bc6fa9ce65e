#pragma once

#include "host/dxf/dxf_binary_form.h"
#include "host/dxf/dxf_buffered_sink.h"
#include "host/dxf/dxf_save_report.h"

#include <string>

namespace dxf {

/// Writes tags in binary form. A value is written in the form of its group: one of another kind is converted as if
/// it had gone through a text file. What the form cannot hold is changed as little as can be, or left out, and
/// reported.
class BinarySink final : public BufferedSink
{
public:
    /// All have to outlive the sink.
    BinarySink(ByteSink& bytes, TextEncoder& encoder, ERelease release, SaveReport& report);

    /// Throws OdError(eOutOfRange) for a real that is not finite, besides the errors of the file.
    void put(OdDbTag const& tag) override;

private:
    void putForm(EBinaryForm form, OdDbTag const& tag);
    void putConverted(EBinaryForm form, OdDbTag const& tag);
    bool makeInteger(OdDbTag const& tag, OdDbTag& integer);
    void putCode(int code);
    template <class Number>
    void putNumber(Number value);
    void putInteger(EBinaryForm form, int code, std::int64_t value);
    std::int64_t fitted(EBinaryForm form, int code, std::int64_t value);
    void putAsText(OdDbTag const& tag);
    void putChunks(int code, std::string_view bytes);
    void report(int code, wchar_t const* what);

    SaveReport& m_report;
    bool m_hasShortCodes;
    std::string m_record; ///< for messages
};

} // namespace dxf
