#pragma once

#include "host/dxf/dxf_byte_sink.h"
#include "host/dxf/dxf_file_sink.h"
#include "host/dxf/dxf_real_text.h"
#include "host/dxf/dxf_text_encoder.h"

#include <memory>

namespace dxf {

/// What the text form and the binary form of files have in common when they are written.
class BufferedSink : public FileSink
{
public:
    void flush() final;

protected:
    BufferedSink(ByteSink& bytes, TextEncoder& encoder);

    static constexpr std::size_t kBufferSize = 256 * 1024;           ///< more than files keep back themselves
    static constexpr std::size_t kLongestNumber = kLongestReal + 20; ///< any number as text, and a group code

    /// Makes room for `size` bytes, less than the buffer holds, behind m_at.
    void reserve(std::size_t size)
    {
        if (static_cast<std::size_t>(m_buffer.get() + kBufferSize - m_at) < size)
            flush();
    }
    // The functions below make room as they need it, and for one byte more.

    /// The value of a tag in the form of text files. Throws OdError(eOutOfRange) for a real that is not finite.
    void putValueText(OdDbTag const& tag);
    /// Bytes of any number.
    void putBytes(std::string_view bytes);
    /// The text as the file holds it: encoded, except for names of records (group 0), and with a caret before what
    /// would end it.
    void putText(int code, std::string_view utf8);
    /// Two hexadecimal digits for each byte.
    void putHexadecimal(std::string_view bytes);

    // These write less than kLongestNumber bytes, for which the caller makes room.

    /// Upper-case hexadecimal digits.
    void putHandle(int code, OdDbHandle handle);
    void putRealText(double value) { m_at = putReal(m_at, value); }
    void putIntegerText(std::int64_t value);

    /// Throws OdError(eOutOfRange) for a real that is not finite.
    void requireFinite(int code, double value) const;
    /// The object whose tags are being written, as far as its handle is known.
    OdDbHandle lastObject() const { return m_lastObject; }

    char* m_at; ///< where the next byte goes

private:
    void putEscaped(std::string_view text);

    ByteSink& m_bytes;
    TextEncoder& m_encoder;
    std::unique_ptr<char[]> m_buffer;
    OdDbHandle m_lastObject;
};

} // namespace dxf
