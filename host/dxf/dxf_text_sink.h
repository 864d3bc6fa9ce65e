#pragma once

#include "host/dxf/dxf_buffered_sink.h"

namespace dxf {

/// Writes tags as text: right-aligned group codes, LF, reals in the shortest form that reads back as the same
/// bits.
class TextSink final : public BufferedSink
{
public:
    /// `bytes` and `encoder` have to outlive the sink.
    TextSink(ByteSink& bytes, TextEncoder& encoder) : BufferedSink(bytes, encoder) {}

    /// Throws OdError(eOutOfRange) for a real that is not finite, besides the errors of the file.
    void put(OdDbTag const& tag) override;

private:
    void putCode(int code);
};

} // namespace dxf
