// Chains as records. The way back: sds_chain.cpp.
#include "host/sds/sds_record.h"

#include "host/db/od_db_database.h"
#include "host/db/od_dxf_code.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace ca {
namespace {

constexpr int kEntityName = -1;
constexpr int kOtherEntityName = -2;
constexpr int kExtendedData = -3;
constexpr int kType = 0;
constexpr int kHandle = 5;
constexpr int kPaperSpace = 67;
constexpr int kMarker = 100;
constexpr int kBraces = 102;
constexpr int kOwner = 330;
constexpr int kLayout = 410;
constexpr int kFirstExtendedData = 1000;
constexpr int kApplication = 1001;
constexpr std::string_view kEntityMarker = "AcDbEntity";

/// A chain that runs back into itself has none: the slower of two walks over it is overtaken.
bool hasEnd(sds_resbuf const* chain)
{
    sds_resbuf const* slow = chain;
    for (sds_resbuf const* fast = chain; fast && fast->rbnext;) {
        fast = fast->rbnext->rbnext;
        slow = slow->rbnext;
        if (fast == slow)
            return fast == nullptr;
    }
    return true;
}

bool isAngle(int code)
{
    return OdDxfCode::_getType(code) == OdDxfCode::kAngle;
}

double toRadians(double degrees)
{
    return degrees * (OdaPI / 180.0);
}

/// The angle in degrees that gives these radians, as people would write it where several do.
double toDegrees(double radians)
{
    constexpr int kDigits = 15;
    double const degrees = radians * (180.0 / OdaPI);
    char text[40];
    double rounded = degrees;
    auto const end = std::to_chars(text, std::end(text), degrees, std::chars_format::general, kDigits).ptr;
    std::from_chars(text, end, rounded);
    for (double const each : {rounded, degrees, std::nextafter(degrees, -std::numeric_limits<double>::infinity()),
                              std::nextafter(degrees, std::numeric_limits<double>::infinity())})
        if (toRadians(each) == radians)
            return each;
    return degrees;
}

/// Takes the nodes of a chain one after another.
class RecordBuilder
{
public:
    explicit RecordBuilder(OdDbDatabase const& database) : m_database(database) {}

    bool take(sds_resbuf const& node);
    /// False when the record ends too early.
    bool finish() const { return m_leftOutGroup.empty() && !m_wantsApplication; }
    SdsRecord& record() { return m_record; }

private:
    bool takeValue(sds_resbuf const& node);
    bool takeText(int code, wchar_t const* text);
    bool takeReal(int code, double value);
    bool takePoint(int code, sds_point const& point);
    bool takeInteger(int code, std::int64_t value, std::int64_t least, std::int64_t most);
    bool takeReference(int code, sds_name const& name);
    bool takeBinary(int code, sds_binary const& binary);
    bool isLeftOut(int code) const;

    OdDbDatabase const& m_database;
    SdsRecord m_record;
    bool m_isBelowEntity = false;    ///< below the marker of a section that belongs to a class alone
    bool m_isInExtendedData = false; ///< behind the first application
    bool m_wantsApplication = false; ///< extended data was announced
    std::string m_leftOutGroup;      ///< the group in braces that is being left out
    int m_pointCode = 0;             ///< of the node in front, if it is a point
};

bool RecordBuilder::take(sds_resbuf const& node)
{
    int const code = node.restype;
    if (code == kEntityName || code == kOtherEntityName)
        return true;
    if (code == kExtendedData) {
        m_wantsApplication = true;
        return m_leftOutGroup.empty();
    }
    bool const isExtendedData = code >= kFirstExtendedData;
    if (code < 0 || (m_isInExtendedData && !isExtendedData))
        return false;
    if (isExtendedData && !m_isInExtendedData && code != kApplication)
        return false;
    if (m_wantsApplication && code != kApplication)
        return false;
    m_isInExtendedData |= isExtendedData;
    m_wantsApplication = false;
    bool const isTaken = takeValue(node);
    m_pointCode = restypeToResvalType(node.restype) == RT3DPOINT ? code : 0;
    return isTaken;
}

bool RecordBuilder::takeValue(sds_resbuf const& node)
{
    using Short = std::numeric_limits<std::int16_t>;
    using Long = std::numeric_limits<std::int32_t>;
    using Longest = std::numeric_limits<std::int64_t>;
    sds_resbuf::Value const& value = node.resval;
    int const code = node.restype;
    switch (restypeToResvalType(node.restype)) {
    case RTSTR: return takeText(code, value.rstring);
    case RTREAL: return takeReal(code, value.rreal);
    case RT3DPOINT: return takePoint(code, value.rpoint);
    case RTSHORT: return takeInteger(code, value.rint, Short::min(), Short::max());
    case RTLONG: return takeInteger(code, value.rlong, Long::min(), Long::max());
    case RTINT64: return takeInteger(code, value.rlong, Longest::min(), Longest::max());
    case RTENAME: return takeReference(code, value.rlname);
    case RTBINARY: return takeBinary(code, value.rbinary);
    default: return false;
    }
}

/// What says where the entity stands; sections of a class may use the same codes for something else.
bool RecordBuilder::isLeftOut(int code) const
{
    bool const isEnvelope = code == kHandle || code == kOwner || code == kLayout;
    return !m_leftOutGroup.empty() || (isEnvelope && !m_isBelowEntity && !m_isInExtendedData);
}

bool RecordBuilder::takeText(int code, wchar_t const* text)
{
    if (!text)
        return false;
    std::string const utf8 = OdString(text).toUtf8();
    if (code == kType) {
        bool const isFirst = m_record.type.empty();
        m_record.type = OdString(text).upper().toUtf8();
        return isFirst && !m_record.type.empty();
    }
    if (code == kBraces && !m_isBelowEntity && (utf8 == "{ACAD_REACTORS" || utf8 == "{ACAD_XDICTIONARY")) {
        bool const isFirst = m_leftOutGroup.empty();
        m_leftOutGroup = utf8;
        return isFirst;
    }
    if (code == kBraces && !m_leftOutGroup.empty()) {
        m_leftOutGroup.clear();
        return utf8 == "}";
    }
    if (code == kMarker)
        m_isBelowEntity = m_isBelowEntity || utf8 != kEntityMarker;
    if (OdDxfCode::isHandleText(OdDxfCode::_getType(code))) {
        OdDbHandle const handle{OdString(text)};
        bool const isHandle = !handle.isNull() || utf8.find_first_not_of('0') == std::string::npos;
        if (isHandle && !isLeftOut(code))
            m_record.tags.handle(code, handle);
        return isHandle || isLeftOut(code);
    }
    if (!isLeftOut(code))
        m_record.tags.text(code, utf8);
    return true;
}

bool RecordBuilder::takeReal(int code, double value)
{
    // Behind a point it would be taken for one of its coordinates; extended data means nothing to the host.
    if (m_pointCode != 0 && !m_isInExtendedData && (code == m_pointCode + 10 || code == m_pointCode + 20))
        return false;
    double const stored = isAngle(code) ? toDegrees(value) : value;
    if (!isLeftOut(code))
        m_record.tags.real(code, stored);
    return std::isfinite(stored);
}

bool RecordBuilder::takePoint(int code, sds_point const& point)
{
    if (!isLeftOut(code))
        m_record.tags.point(code, point, 3);
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

bool RecordBuilder::takeInteger(int code, std::int64_t value, std::int64_t least, std::int64_t most)
{
    if (code == kPaperSpace && !m_isBelowEntity)
        m_record.isInPaperSpace = value != 0;
    else if (!isLeftOut(code))
        m_record.tags.integer(code, value);
    return value >= least && value <= most;
}

bool RecordBuilder::takeReference(int code, sds_name const& name)
{
    OdDbObjectId const id = objectIdOf(name);
    bool const isNull = name[0] == 0 && name[1] == 0;
    if (isLeftOut(code))
        return true;
    m_record.tags.handle(code, id.getHandle());
    return isNull || (!id.isNull() && id.database() == &m_database);
}

bool RecordBuilder::takeBinary(int code, sds_binary const& binary)
{
    if (binary.clen < 0 || (binary.clen > 0 && !binary.buf))
        return false;
    if (!isLeftOut(code))
        m_record.tags.binary(code,
                             {reinterpret_cast<char const*>(binary.buf), static_cast<std::size_t>(binary.clen)});
    return true;
}

} // namespace

double realInChain(OdDbTag const& tag)
{
    return isAngle(tag.code) ? toRadians(tag.real) : tag.real;
}

SdsName entityNameIn(sds_resbuf const* chain)
{
    if (hasEnd(chain))
        for (sds_resbuf const* node = chain; node; node = node->rbnext)
            if (node->restype == kEntityName)
                return {{node->resval.rlname[0], node->resval.rlname[1]}};
    return {};
}

std::optional<SdsRecord> recordOf(sds_resbuf const* chain, OdDbDatabase const& database)
{
    if (!hasEnd(chain))
        return std::nullopt;
    RecordBuilder builder(database);
    for (sds_resbuf const* node = chain; node; node = node->rbnext)
        if (!builder.take(*node))
            return std::nullopt;
    if (!builder.finish())
        return std::nullopt;
    return std::move(builder.record());
}

} // namespace ca
