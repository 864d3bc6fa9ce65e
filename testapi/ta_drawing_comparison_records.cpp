// Records of symbol tables, which are paired by name.
#include "testapi/ta_drawing_comparison_fields.h"
#include "testapi/ta_drawing_comparison_teller.h"

#include <cmath>
#include <deque>

namespace ta {

namespace {

/// In the order of OdDbTableKind.
constexpr wchar_t const* s_tableNames[kOdDbTableKinds] = {
    L"block table",           L"layer table",       L"linetype table",          L"text style table",
    L"dimension style table", L"application table", L"coordinate system table", L"view table",
    L"viewport table",
};

/// The record says nothing about the drawing: its file did not have it.
bool wasAddedOnOpening(OdDbSymbolTableRecord const& record)
{
    return record.isImplied() || record.database()->isFromTemplate(record.getDbHandle());
}

OdString nameOf(OdDbSymbolTableRecord const& record)
{
    auto const* const style = odCast<OdDbTextStyleTableRecord>(&record);
    return style && style->isNameless() ? style->fileName() : record.getName();
}

OdDbBlockBegin const* beginOf(OdDbBlockTableRecord const& block)
{
    OdDbObjectId const id = block.beginId();
    return id.isValid() ? static_cast<OdDbBlockBegin const*>(id.stub()->object) : nullptr;
}

OdDbSymbolTable const* tableOf(OdDbDatabase const& database, OdDbTableKind kind)
{
    OdDbObjectId const id = database.getTableId(kind);
    return id.isValid() ? static_cast<OdDbSymbolTable const*>(id.stub()->object) : nullptr;
}

} // namespace

/// Of several records of one name, as viewports have, each goes with the one in the same place among them.
std::vector<DrawingComparison::RecordPair> DrawingComparison::pairRecords(OdDbTableKind kind) const
{
    std::vector<RecordPair> pairs;
    OdDbSymbolTable const *const table1 = tableOf(m_first, kind), *const table2 = tableOf(m_second, kind);
    if (!table1 || !table2)
        return pairs;
    std::unordered_map<OdString, std::deque<OdDbSymbolTableRecord const*>> records2;
    auto const recordOf = [](OdDbStub const* stub) {
        return static_cast<OdDbSymbolTableRecord const*>(stub->object);
    };
    for (OdDbStub const* const stub : table2->records())
        if (!stub->erased)
            records2[DrawingBridge::keyOf(*recordOf(stub))].push_back(recordOf(stub));
    for (OdDbStub const* const stub : table1->records()) {
        if (stub->erased)
            continue;
        auto const found = records2.find(DrawingBridge::keyOf(*recordOf(stub)));
        bool const hasOther = found != records2.end() && !found->second.empty();
        pairs.push_back({recordOf(stub), hasOther ? found->second.front() : nullptr});
        if (hasOther)
            found->second.pop_front();
    }
    for (OdDbStub const* const stub : table2->records()) {
        if (stub->erased)
            continue;
        auto& left = records2[DrawingBridge::keyOf(*recordOf(stub))];
        if (!left.empty() && left.front() == recordOf(stub)) {
            pairs.push_back({nullptr, recordOf(stub)});
            left.pop_front();
        }
    }
    return pairs;
}

void DrawingComparison::compareRecords(OdDbTableKind kind, RecordPair const& pair)
{
    Teller teller(s_tableNames[static_cast<std::size_t>(kind)], *pair.first, *pair.second, this);
    teller.setName(nameOf(*pair.first));
    teller.setFileFields(true);
    if (auto const* const style = odCast<OdDbDimStyleTableRecord>(pair.first)) {
        m_fields->compare(*pair.first, *pair.second, FieldComparison::kWithoutTails, teller);
        compareDimStyles(*style, static_cast<OdDbDimStyleTableRecord const&>(*pair.second), teller);
        return;
    }
    if (!m_fields->areIdentical(*pair.first, *pair.second))
        m_fields->compare(*pair.first, *pair.second, FieldComparison::kAll, teller);
    auto const* const block = odCast<OdDbBlockTableRecord>(pair.first);
    if (!block)
        return;
    OdDbBlockBegin const *const begin1 = beginOf(*block), *const begin2 =
                                                              beginOf(static_cast<OdDbBlockTableRecord const&>(
                                                                  *pair.second));
    if (begin1 && begin2) // the tail of a head repeats the name of the block
        m_fields->compare(*begin1, *begin2, FieldComparison::kWithoutTails, teller);
}

/// Variable by variable: one that a style does not mention has its default.
void DrawingComparison::compareDimStyles(OdDbDimStyleTableRecord const& style1,
                                         OdDbDimStyleTableRecord const& style2, Teller& teller) const
{
    for (OdDbDimVariable const& variable : odDbDimVariables()) {
        std::string_view const name = variable.name;
        OdString value1, value2;
        double offBy = 0;
        bool agree = true;
        if (variable.isReference()) {
            OdDbObjectId const id1 = style1.reference(name), id2 = style2.reference(name);
            agree = m_bridge->same(id1, id2);
            value1 = Comparison::textOf(id1);
            value2 = Comparison::textOf(id2);
        } else if (variable.kind == OdDbDimVariable::kText) {
            value1 = Comparison::textOf(style1.text(name));
            value2 = Comparison::textOf(style2.text(name));
            agree = value1 == value2;
        } else if (variable.kind == OdDbDimVariable::kInteger) {
            value1 = Comparison::textOf(style1.integer(name));
            value2 = Comparison::textOf(style2.integer(name));
            agree = value1 == value2;
        } else {
            double const real1 = style1.real(name), real2 = style2.real(name);
            offBy = std::abs(real1 - real2);
            agree = offBy <= m_options.eps || real1 == real2;
            value1 = Comparison::textOf(real1);
            value2 = Comparison::textOf(real2);
        }
        if (!agree)
            teller.differs({.expression = nullptr,
                            .message = L"Incorrect " + OdString::fromUtf8(name) + L" value",
                            .expected = value2,
                            .actual = value1,
                            .offBy = offBy,
                            .allowed = offBy == 0 ? 0 : m_options.eps,
                            .part = {},
                            .place = {"testapi/ta_drawing_comparison", __LINE__}});
    }
}

void DrawingComparison::tellTable(OdDbTableKind kind)
{
    OdString const place = s_tableNames[static_cast<std::size_t>(kind)];
    OdDbSymbolTable const *const table1 = tableOf(m_first, kind), *const table2 = tableOf(m_second, kind);
    if (!table1 || !table2)
        return;
    Teller teller(place, *table1, *table2, this);
    teller.setFileFields(true);
    m_fields->compare(*table1, *table2, FieldComparison::kWithoutTails, teller);
    for (RecordPair const& pair : pairRecords(kind)) {
        if (pair.first && pair.second) {
            if (!wasAddedOnOpening(*pair.first) || !wasAddedOnOpening(*pair.second))
                compareRecords(kind, pair);
        } else if (auto const& record = pair.first ? *pair.first : *pair.second; !wasAddedOnOpening(record))
            tellOnly(place, record, nameOf(record), pair.first != nullptr);
    }
}

} // namespace ta
