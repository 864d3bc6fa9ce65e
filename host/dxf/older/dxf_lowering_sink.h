#pragma once

#include "host/db/od_db_database.h"
#include "host/dxf/dxf_release.h"
#include "host/dxf/dxf_save_report.h"
#include "host/dxf/older/dxf_lower_filter.h"
#include "host/dxf/older/dxf_lower_replace.h"

#include <unordered_set>

namespace dxf {

/// Makes of the tags of a current file those of an older release, on their way into the file: what the release
/// does not have is replaced where it can be, else left out and reported.
class LoweringSink final : public OdDbTagSink
{
public:
    LoweringSink(OdDbDatabase const& database, OdDbTagSink& target, ERelease release, SaveReport& report);

    void put(OdDbTag const& tag) override;
    /// Hands on what is still held back; has to be called in the end.
    void finish();

private:
    enum class ESection : std::uint8_t
    {
        kNone,
        kHeader,
        kClasses,
        kTables,
        kBlocks,
        kEntities,
        kObjects,
        kUnknown,
        kLeftOut
    };
    /// Entities on their way from a replacement to the filter.
    class ReplacementSink;

    bool isFromTargetOrOlder() const { return m_context.origin <= m_context.target; }
    void finishRecord();
    void beginSection(TagSpan record);
    void endSection(TagSpan record);
    void putTableTag(TagSpan record);
    void putBlockOrEntity(TagSpan record);
    void putEntity(TagSpan record);
    bool putKnownEntity(RecordType const& type, TagSpan record);
    bool isBodyWithoutData(TagSpan record) const;
    void leaveOut(TagSpan record, RecordType const* type);
    void putObject(TagSpan record);
    void putGroup(TagSpan record);
    void noteClassIsUnknown(TagSpan record);
    bool isPassedOn(RecordType const& type) const;
    bool isReplaced(RecordType const& type) const;
    void reserveHandles();
    OdDbHandle seedFor(TagSpan variable) const;

    LowerContext m_context;
    LegacyNames m_names;
    OdDbTagSink& m_target;
    LowerFilter m_filter;
    NewHandles m_handles;
    OdDbHandle m_seed; ///< null when no handles are needed beyond those of the drawing
    LowerRecord m_record;
    ESection m_section = ESection::kNone;
    bool m_isTableLeftOut = false;
    bool m_isBlockLeftOut = false;             ///< a sheet that the release cannot have
    bool m_isParentLeftOut = false;            ///< so are the attributes or vertices that follow
    std::unordered_set<std::string> m_classes; ///< that the drawing lists
    std::unordered_set<std::uint64_t> m_leftOut;
};

} // namespace dxf
