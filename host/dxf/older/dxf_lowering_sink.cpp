#include "host/dxf/older/dxf_lowering_sink.h"

#include "host/db/filer/od_db_record_writer.h"
#include "host/db/records/od_db_block_table_record.h"
#include "host/db/records/od_db_table_kinds.h"
#include "host/dxf/older/dxf_lower_header.h"
#include "host/dxf/older/dxf_lower_viewport.h"

#include <algorithm>

namespace dxf {

namespace {

using enum ERelease;

constexpr int kComment = 999;

bool belongsToPrevious(std::string_view type)
{
    return type == "ATTRIB" || type == "VERTEX" || type == "SEQEND";
}

/// A paper space besides the one that every release has.
bool isFurtherSheet(std::string_view block)
{
    constexpr std::string_view kSheet = "*PAPER_SPACE";
    return block.size() > kSheet.size() &&
           std::equal(kSheet.begin(), kSheet.end(), block.begin(),
                      [](char a, char b) { return a == (b >= 'a' && b <= 'z' ? b - 'a' + 'A' : b); });
}

void putComments(TagSpan record, OdDbTagSink& sink)
{
    for (OdDbTag const& tag : record)
        if (tag.code == kComment)
            sink.put(tag);
}

/// Handles of objects, of block records, and of records that are only implied, with the frames of such blocks.
std::unordered_set<std::uint64_t> handlesMissingInR12(OdDbDatabase const& database)
{
    std::unordered_set<std::uint64_t> handles{database.getBlockTableId().getHandle().value()};
    for (OdDbStub const* const stub : database.fileObjects())
        handles.insert(stub->handle.value());
    for (OdDbTableKindInfo const& kind : odDbTableKinds()) {
        for (OdDbStub const* const stub : database.table(kind.kind).records()) {
            bool const isBlock = kind.kind == OdDbTableKind::kBlock;
            bool const isImplied = static_cast<OdDbSymbolTableRecord const*>(stub->object)->isImplied();
            if (isBlock || isImplied)
                handles.insert(stub->handle.value());
            if (!isBlock || !isImplied)
                continue;
            auto const& block = *static_cast<OdDbBlockTableRecord const*>(stub->object);
            for (OdDbObjectId const frame : {block.beginId(), block.endId()})
                handles.insert(frame.getHandle().value());
        }
    }
    return handles;
}

class NoSink final : public OdDbTagSink
{
public:
    void put(OdDbTag const&) override {}
};

} // namespace

/// Hands each record on when the next one begins.
class LoweringSink::ReplacementSink final : public OdDbTagSink
{
public:
    explicit ReplacementSink(LowerFilter& filter) : m_filter(filter) {}
    void put(OdDbTag const& tag) override
    {
        if (tag.code == 0)
            finish();
        m_record.put(tag);
    }
    void finish()
    {
        m_filter.writeEntity(m_record.tags());
        m_record.clear();
    }

private:
    LowerFilter& m_filter;
    LowerRecord m_record;
};

LoweringSink::LoweringSink(OdDbDatabase const& database, OdDbTagSink& target, ERelease release, SaveReport& report)
    : m_context(database, release, report),
      m_names(m_context),
      m_target(target),
      m_filter(m_context, m_names, target),
      m_handles(database.handseed())
{
    for (OdDbFileContent::Section const& section : database.fileContent().sections)
        if (section.name == "CLASSES")
            for (OdDbTag const tag : section.tags)
                if (tag.code == 1)
                    m_classes.emplace(tag.text);
    reserveHandles();
}

/// Classes of the drawing's own list are passed on as unknown ones.
bool LoweringSink::isPassedOn(RecordType const& type) const
{
    return m_context.target >= kR13 && m_classes.contains(std::string(type.name));
}

bool LoweringSink::isReplaced(RecordType const& type) const
{
    return type.first > m_context.target && type.replacement != EReplacement::kNone && !isPassedOn(type);
}

/// The header, which comes first, names the next free handle: finds out how many replacements will take.
void LoweringSink::reserveHandles()
{
    NewHandles handles = m_handles;
    NoSink nowhere;
    LowerRecord record;
    for (OdDbStub const* const block : m_context.database.table(OdDbTableKind::kBlock).records()) {
        if (block->erased)
            continue;
        for (OdDbStub const* const stub : static_cast<OdDbBlockTableRecord const*>(block->object)->entities()) {
            RecordType const* const type = stub->erased ? nullptr : findEntityType(stub->object->dxfName());
            if (!type || !isReplaced(*type))
                continue;
            record.clear();
            odDbWriteRecord(*stub->object, record);
            putReplacement(type->replacement, record.tags(), {m_context, handles, nowhere});
        }
    }
    if (handles.next() != m_handles.next())
        m_seed = handles.next();
}

/// What R12 does not hold is made anew when its files are opened: it uses no handles up.
OdDbHandle LoweringSink::seedFor(TagSpan variable) const
{
    OdDbTag const* const seed = findTag(variable, 5);
    if (!m_seed.isNull() || m_context.target != kR12 || typeOf(variable) != "$HANDSEED" || !seed)
        return m_seed;
    std::unordered_set<std::uint64_t> const unwritten = handlesMissingInR12(m_context.database);
    std::uint64_t next = seed->handle().value();
    while (unwritten.contains(next - 1))
        --next;
    return OdDbHandle(next);
}

void LoweringSink::put(OdDbTag const& tag)
{
    constexpr int kVariable = 9;
    // The first variable of the header follows the tags that begin the section.
    bool const isInHeader = m_section == ESection::kHeader || typeOf(m_record.tags()) == "SECTION";
    if (tag.code == 0 || (tag.code == kVariable && isInHeader)) {
        finishRecord();
        m_record.clear();
    }
    m_record.put(tag);
}

void LoweringSink::finish()
{
    finishRecord();
    m_record.clear();
}

void LoweringSink::finishRecord()
{
    TagSpan const record = m_record.tags();
    std::string_view const type = typeOf(record);
    if (record.empty())
        return;
    if (record.front().code == 0 && type == "SECTION")
        return beginSection(record);
    if (record.front().code == 0 && type == "ENDSEC")
        return endSection(record);
    switch (m_section) {
    case ESection::kHeader: return putOldVariable(record, m_context, m_names, seedFor(record), m_target);
    case ESection::kClasses: return m_filter.writeRecord(record);
    case ESection::kTables: return putTableTag(record);
    case ESection::kBlocks:
    case ESection::kEntities: return putBlockOrEntity(record);
    case ESection::kObjects: return putObject(record);
    case ESection::kLeftOut: return;
    case ESection::kNone:
    case ESection::kUnknown: return putAll(record, m_target);
    }
}

void LoweringSink::beginSection(TagSpan record)
{
    struct Known
    {
        std::string_view name;
        ESection section;
    };
    static constexpr Known s_known[] = {
        {"HEADER", ESection::kHeader}, {"CLASSES", ESection::kClasses},   {"TABLES", ESection::kTables},
        {"BLOCKS", ESection::kBlocks}, {"ENTITIES", ESection::kEntities}, {"OBJECTS", ESection::kObjects},
    };
    std::string_view const name = textOf(record, 2);
    auto const it = std::find_if(std::begin(s_known), std::end(s_known),
                                 [name](Known const& known) { return known.name == name; });
    m_section = it == std::end(s_known) ? ESection::kUnknown : it->section;

    RecordType const* const type = findSectionType(name);
    bool const isTooNew =
        type ? type->first > m_context.target : m_context.target == kR12 && !isFromTargetOrOlder();
    if (!isTooNew)
        return putAll(record, m_target);
    putComments(record, m_target);
    if (type ? type->isTold : true)
        m_context.noteLeftOut(name, L"the section", type ? type->first : kR13, {});
    if (m_section != ESection::kObjects) // of these each type is told of
        m_section = ESection::kLeftOut;
}

void LoweringSink::endSection(TagSpan record)
{
    bool const isLeftOut =
        m_section == ESection::kLeftOut || (m_section == ESection::kObjects && m_context.target == kR12);
    m_section = ESection::kNone;
    if (isLeftOut)
        putComments(record, m_target);
    else
        putAll(record, m_target);
}

void LoweringSink::putTableTag(TagSpan record)
{
    std::string_view const type = typeOf(record);
    if (type == "TABLE")
        m_isTableLeftOut = m_context.target == kR12 && textOf(record, 2) == "BLOCK_RECORD";
    if (m_isTableLeftOut)
        putComments(record, m_target);
    else
        m_filter.writeTableRecord(record);
    if (type == "ENDTAB")
        m_isTableLeftOut = false;
}

void LoweringSink::putBlockOrEntity(TagSpan record)
{
    std::string_view const type = typeOf(record);
    if (type == "BLOCK")
        m_isBlockLeftOut =
            m_context.target == kR12 && isFurtherSheet(textOf(sectionOf(record, "AcDbBlockBegin"), 2));
    if (!m_isBlockLeftOut) {
        putEntity(record);
    } else if (type != "BLOCK" && type != "ENDBLK") {
        if (!belongsToPrevious(type))
            m_context.report.add(odFormat(L"%ls: R12 has one sheet only; left out with another one",
                                          OdString::fromUtf8(type).c_str()),
                                 handleOf(record));
    }
    if (type == "ENDBLK")
        m_isBlockLeftOut = false;
}

void LoweringSink::putEntity(TagSpan record)
{
    if (m_isParentLeftOut && belongsToPrevious(typeOf(record)))
        return;
    m_isParentLeftOut = false;
    RecordType const* const type = findEntityType(typeOf(record));
    bool const isWritten =
        type ? putKnownEntity(*type, record) : m_context.target >= kR13 || isFromTargetOrOlder();
    if (!isWritten)
        leaveOut(record, type);
    else if (!type)
        m_filter.writeEntity(record);
}

bool LoweringSink::putKnownEntity(RecordType const& type, TagSpan record)
{
    ERelease const target = m_context.target;
    if (target < kR2013 && isBodyWithoutData(record))
        return false;
    if (type.first <= target) {
        if (target >= kR2000 || type.name != "VIEWPORT" || hasOldView(record)) {
            m_filter.writeEntity(record);
        } else {
            ReplacementSink sink(m_filter);
            putOldViewport(record, m_context, m_names, sink);
            sink.finish();
        }
        return true;
    }
    if (isPassedOn(type)) {
        noteClassIsUnknown(record);
        m_filter.writeEntity(record);
        return true;
    }
    ReplacementSink sink(m_filter);
    if (!putReplacement(type.replacement, record, {m_context, m_handles, sink}))
        return false;
    sink.finish();
    m_context.report.add(odFormat(L"%ls: %ls has no such entities; drawn as %ls",
                                  OdString::fromUtf8(type.name).c_str(), m_context.targetName(),
                                  replacementName(type.replacement, m_context.target)),
                         handleOf(record));
    return true;
}

/// From R2013 on bodies stand in a section of their own, in a form that older releases do not read.
bool LoweringSink::isBodyWithoutData(TagSpan record) const
{
    TagSpan const body = sectionOf(record, "AcDbModelerGeometry");
    return findTag(body, 290) && !findTag(body, 1);
}

void LoweringSink::leaveOut(TagSpan record, RecordType const* type)
{
    OdString const name = OdString::fromUtf8(typeOf(record));
    bool const isBody = type && type->first <= m_context.target;
    m_context.report.add(
        isBody ? odFormat(L"%ls: the form of its body needs R2013; left out", name.c_str())
               : odFormat(L"%ls: %ls has no such entities; left out", name.c_str(), m_context.targetName()),
        handleOf(record));
    m_leftOut.insert(handleOf(record).value());
    m_isParentLeftOut = true;
    putComments(record, m_target);
}

void LoweringSink::putObject(TagSpan record)
{
    RecordType const* const type = findObjectType(typeOf(record));
    if (m_context.target == kR12) {
        putComments(record, m_target);
        if ((!type || type->isTold) && !m_context.database.isFromTemplate(handleOf(record)))
            m_context.report.add(
                odFormat(L"%ls: R12 has no such objects; left out", OdString::fromUtf8(typeOf(record)).c_str()),
                handleOf(record));
        return;
    }
    if (type && type->isTold && type->first > m_context.target)
        noteClassIsUnknown(record);
    if (typeOf(record) == "GROUP" && !m_leftOut.empty())
        putGroup(record);
    else
        m_filter.writeRecord(record);
}

/// A group without the members that were left out.
void LoweringSink::putGroup(TagSpan record)
{
    constexpr int kMember = 340;
    std::vector<OdDbTag> kept;
    std::copy_if(record.begin(), record.end(), std::back_inserter(kept), [this](OdDbTag const& tag) {
        return tag.code != kMember || !m_leftOut.contains(tag.handle().value());
    });
    m_filter.writeRecord(kept);
}

void LoweringSink::noteClassIsUnknown(TagSpan record)
{
    if (m_context.database.isFromTemplate(handleOf(record)))
        return;
    m_context.report.add(odFormat(L"%ls: %ls does not know the class; kept",
                                  OdString::fromUtf8(typeOf(record)).c_str(), m_context.targetName()),
                         handleOf(record));
}

} // namespace dxf
