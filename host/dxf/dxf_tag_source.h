#pragma once

#include "host/db/filer/od_db_tag.h"
#include "host/root/od_error.h"

#include <concepts>
#include <functional>
#include <memory>

namespace dxf {

/// Something in a file that is no tag, and behind which a source goes on.
struct Damage
{
    std::size_t place; ///< as TagSource::place
    OdString reason;   ///< a whole sentence without full stop; empty when more damage was told than anybody reads
    bool breaksRecord; ///< tags of the present record are lost; otherwise only one value is
};

/// The tags of a drawing file one after another, whatever form the file has.
class TagSource
{
public:
    using DamageListener = std::function<void(Damage const&)>;
    /// How many pieces of damage have a reason; of the others a listener can only count.
    static constexpr std::size_t kMostReasons = 1000;

    virtual ~TagSource() = default;
    TagSource(TagSource const&) = delete;
    TagSource& operator=(TagSource const&) = delete;

    /// Reads the next tag; false at the end of the file. Text of the tag is UTF-8 and lasts until the next call;
    /// the text of group 0 lasts as long as the source. Damage is told to the listener: a value that its group
    /// cannot have is left out; after bytes that are no tags the source goes on at the next record (group 0).
    virtual bool next(OdDbTag& tag) = 0;
    /// Where the tag that was read last stands: the line of its group code from 1, or in binary files the offset
    /// of its group code in bytes.
    virtual std::size_t place() const = 0;
    /// A place as messages name it: ":12" for a line, ": byte 300" in binary files.
    virtual OdString placeText(std::size_t place) const = 0;
    /// The same file from its beginning, for looking ahead; damage there is told to nobody.
    virtual std::unique_ptr<TagSource> fromStart() const = 0;

    /// Who hears of damage; an empty function for nobody.
    void setDamageListener(DamageListener listener) { m_listener = std::move(listener); }

    /// Throws OdError(eInvalidFile) with path and place in front of the reason.
    [[noreturn]] void fail(OdString const& reason, std::size_t place) const;
    [[noreturn]] void fail(OdString const& reason) const { fail(reason, place()); }

protected:
    explicit TagSource(OdString path) : m_path(std::move(path)) {}
    OdString const& path() const { return m_path; }
    void tellDamage(std::size_t place, OdString reason, bool breaksRecord) const
    {
        if (m_listener)
            m_listener({place, std::move(reason), breaksRecord});
    }
    /// As above with a function that makes the reason, which is not called when nobody is going to read it.
    template <std::invocable MakeReason>
    void tellDamage(std::size_t place, MakeReason const& makeReason, bool breaksRecord)
    {
        if (!m_listener)
            return;
        bool const isRead = m_numReasons < kMostReasons;
        m_numReasons += isRead ? 1 : 0;
        m_listener({place, isRead ? makeReason() : OdString(), breaksRecord});
    }

private:
    OdString m_path;
    DamageListener m_listener;
    std::size_t m_numReasons = 0;
};

} // namespace dxf
