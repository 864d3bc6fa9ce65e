#include "host/db/records/od_db_linetype_table_record.h"

#include "host/db/audit/od_db_audit_info.h"

OD_DB_DEFINE_CLASS(OdDbLinetypeTableRecord, OdDbSymbolTableRecord, "LTYPE")

OdDbFieldTable const& OdDbLinetypeTableRecord::fields()
{
    // clang-format off
    static constexpr OdDbField s_fields[] = {
        odField<&OdDbLinetypeTableRecord::m_name>     (2, OdDbWriteRule::kAlways),
        odField<&OdDbLinetypeTableRecord::m_flags>    (70, OdDbWriteRule::kAlways),
        odField<&OdDbLinetypeTableRecord::m_comments> (3, OdDbWriteRule::kAlways),
        odField<&OdDbLinetypeTableRecord::m_alignment>(72, OdDbWriteRule::kAlways),
    };
    // clang-format on
    static OdDbFieldTable const s_table(
        {recordSection(), {"AcDbLinetypeTableRecord", s_fields, &readDash, &writeDashes, &readStyle}});
    return s_table;
}

bool OdDbLinetypeTableRecord::readDash(OdDbObject& object, OdDbTag const& tag)
{
    auto& self = static_cast<OdDbLinetypeTableRecord&>(object);
    switch (tag.code) {
    case 73: return true; // the number of dashes; they are counted
    case 40: self.m_patternLength = tag.real; return true;
    case 49: self.m_dashes.emplace_back().length = tag.real; return true;
    default: break;
    }
    if (self.m_dashes.empty())
        return false;
    Dash& dash = self.m_dashes.back();
    switch (tag.code) {
    case 74: dash.flags = static_cast<std::int16_t>(tag.integer); return true;
    case 75: dash.shapeNumber = static_cast<std::int16_t>(tag.integer); return true;
    case 46: dash.scale = tag.real; return true;
    case 50: dash.rotation = OdDbAngle::ofDegrees(tag.real); return true;
    case 44: dash.offset.x = tag.real; return true;
    case 45: dash.offset.y = tag.real; return true;
    case 9: dash.text = OdString::fromUtf8(tag.text); return true;
    default: return false;
    }
}

bool OdDbLinetypeTableRecord::readStyle(OdDbObject& object, OdDbTag const& tag, OdDbReferenceResolver& resolver)
{
    auto& self = static_cast<OdDbLinetypeTableRecord&>(object);
    if (tag.code != 340 || self.m_dashes.empty())
        return false;
    self.m_dashes.back().style = resolver.byHandle(tag.handle());
    return true;
}

void OdDbLinetypeTableRecord::writeDashes(OdDbObject const& object, OdDbTagSink& sink)
{
    auto const& self = static_cast<OdDbLinetypeTableRecord const&>(object);
    sink.integer(73, static_cast<std::int64_t>(self.m_dashes.size()));
    sink.real(40, self.m_patternLength);
    for (Dash const& dash : self.m_dashes) {
        sink.real(49, dash.length);
        sink.integer(74, dash.flags);
        if (dash.flags == 0)
            continue;
        sink.integer(75, dash.shapeNumber);
        sink.handle(340, dash.style.getHandle());
        sink.real(46, dash.scale);
        sink.real(50, dash.rotation.degrees());
        sink.real(44, dash.offset.x);
        sink.real(45, dash.offset.y);
        if ((dash.flags & Dash::kText) != 0)
            sink.text(9, dash.text);
    }
}

void OdDbLinetypeTableRecord::setComments(OdString const& text)
{
    assertWriteEnabled();
    m_comments = text;
}

void OdDbLinetypeTableRecord::setDashes(std::vector<Dash> dashes)
{
    assertWriteEnabled();
    m_patternLength = 0;
    for (Dash const& dash : dashes)
        m_patternLength += std::abs(dash.length);
    m_dashes = std::move(dashes);
}

void OdDbLinetypeTableRecord::audit(OdDbAuditInfo& info) const
{
    OdDbSymbolTableRecord::audit(info);
    auto const isBad = [](Dash const& dash) {
        return !std::isfinite(dash.length) || !std::isfinite(dash.scale) ||
               !std::isfinite(dash.rotation.degrees()) || !std::isfinite(dash.offset.x) ||
               !std::isfinite(dash.offset.y);
    };
    if (!std::isfinite(m_patternLength) || std::any_of(m_dashes.begin(), m_dashes.end(), isBad))
        info.report(*this, L"its dashes are not finite", L"made continuous",
                    [](OdDbObject& object) { static_cast<OdDbLinetypeTableRecord&>(object).setDashes({}); });
    bool const lacksStyle = std::any_of(m_dashes.begin(), m_dashes.end(),
                                        [](Dash const& dash) { return dash.flags != 0 && dash.style.isErased(); });
    if (lacksStyle)
        info.report(*this, L"the text style of a dash is missing");
}
