#pragma once

#include "host/db/filer/od_db_tag.h"
#include "host/ut/ut_atomic_file.h"

#include <memory>

namespace dxf {

/// Writes tags as text in UTF-8: right-aligned group codes, LF, reals in the shortest form that reads back as the
/// same bits.
class TextSink final : public OdDbTagSink
{
public:
    explicit TextSink(ut::AtomicFile& file);

    /// Throws OdError(eOutOfRange) for a real that is not finite, besides the errors of the file.
    void put(OdDbTag const& tag) override;
    /// Hands everything to the file; has to be called in the end.
    void flush();

private:
    void reserve(std::size_t size);
    void putCode(int code);
    void putText(std::string_view text);
    void putEscaped(std::string_view text);
    void putReal(int code, double value);
    void putInteger(std::int64_t value);
    void putHandle(int code, OdDbHandle handle);
    void putBinary(std::string_view bytes);

    ut::AtomicFile& m_file;
    std::unique_ptr<char[]> m_buffer;
    char* m_at;
    OdDbHandle m_lastObject; ///< for messages
};

} // namespace dxf
