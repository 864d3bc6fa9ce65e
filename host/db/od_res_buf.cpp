#include "host/db/od_res_buf.h"

#include "host/db/od_dxf_code.h"

#include <bit>

OD_DEFINE_CLASS(OdResBuf, OdRxObject)

namespace {

/// Result types beyond the group codes of files, as the C programming interface numbers them.
enum EResultType
{
    kReal = 5001,
    kPoint2 = 5002,
    kShort = 5003,
    kAngle = 5004,
    kText = 5005,
    kEntity = 5006,
    kOrientation = 5008,
    kPoint3 = 5009,
    kLong = 5010
};

bool isSameReal(double a, double b)
{
    return a == b || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool isSamePoint(OdGePoint3d const& a, OdGePoint3d const& b)
{
    return isSameReal(a.x, b.x) && isSameReal(a.y, b.y) && isSameReal(a.z, b.z);
}

} // namespace

/// Frees the chain node by node: left to the members, each node would free the next one from within its own
/// destructor, as deep as the chain is long.
OdResBuf::~OdResBuf()
{
    OdResBufPtr rest = std::move(m_next);
    while (rest && rest->numRefs() == 1) {
        OdResBufPtr following = std::move(rest->m_next);
        rest = std::move(following);
    }
}

OdResBufPtr OdResBuf::newRb(int restype, double value)
{
    OdResBufPtr node = newRb(restype);
    node->setDouble(value);
    return node;
}

OdResBufPtr OdResBuf::newRb(int restype, OdString const& value)
{
    OdResBufPtr node = newRb(restype);
    node->setString(value);
    return node;
}

OdResBufPtr OdResBuf::newRb(int restype, OdGePoint3d const& value)
{
    OdResBufPtr node = newRb(restype);
    node->setPoint3d(value);
    return node;
}

OdResBuf::Value OdResBuf::zeroOf(int restype)
{
    switch (restype) {
    case kReal:
    case kAngle:
    case kOrientation: return 0.0;
    case kPoint2:
    case kPoint3: return OdGePoint3d();
    case kShort: return std::int16_t();
    case kLong: return std::int32_t();
    case kText: return OdString();
    case kEntity: return OdDbHandle();
    case kNestedChain: return OdResBufPtr();
    default: break;
    }
    switch (OdDxfCode::Type const type = OdDxfCode::_getType(restype)) {
    case OdDxfCode::kString:
    case OdDxfCode::kComment: return OdString();
    case OdDxfCode::kBool:
    case OdDxfCode::kInt16: return std::int16_t();
    case OdDxfCode::kInt32: return std::int32_t();
    case OdDxfCode::kInt64: return std::int64_t();
    case OdDxfCode::kBinary: return Binary();
    case OdDxfCode::kReal:
    case OdDxfCode::kAngle: return 0.0;
    case OdDxfCode::kPoint: return OdGePoint3d();
    default:
        if (OdDxfCode::isHandleText(type) || type == OdDxfCode::kEntityName)
            return OdDbHandle();
        return std::monostate();
    }
}

void OdResBuf::setRestype(int restype)
{
    Value zero = zeroOf(restype);
    bool const takesEveryKind = std::holds_alternative<std::monostate>(zero);
    if (!takesEveryKind && zero.index() != m_value.index())
        m_value = std::move(zero);
    m_restype = restype;
}

void OdResBuf::set(Value value)
{
    Value const zero = zeroOf(m_restype);
    if (!std::holds_alternative<std::monostate>(zero) && zero.index() != value.index())
        refuse();
    m_value = std::move(value);
}

void OdResBuf::setResBuf(OdResBufPtr const& value)
{
    if (value.get() == this)
        throw OdError(eSelfReference);
    set(value);
}

OdResBufPtr const& OdResBuf::setNext(OdResBufPtr node)
{
    if (node.get() == this)
        throw OdError(eSelfReference);
    m_next = std::move(node);
    return m_next;
}

void OdResBuf::refuse()
{
    throw OdError(eInvalidInput, L"A result buffer holds a value of another kind");
}

bool OdResBuf::hasSameValue(OdResBuf const& other) const
{
    if (this == &other)
        return true;
    if (m_restype != other.m_restype || m_value.index() != other.m_value.index())
        return false;
    if (auto const* const real = std::get_if<double>(&m_value))
        return isSameReal(*real, other.getDouble());
    if (auto const* const point = std::get_if<OdGePoint3d>(&m_value))
        return isSamePoint(*point, other.getPoint3d());
    if (auto const* const chain = std::get_if<OdResBufPtr>(&m_value))
        return areChainsEqual(chain->get(), other.getResBuf().get());
    return m_value == other.m_value;
}

bool OdResBuf::areChainsEqual(OdResBuf const* a, OdResBuf const* b)
{
    while (a && b && a != b) {
        if (!a->hasSameValue(*b))
            return false;
        a = a->m_next.get();
        b = b->m_next.get();
    }
    return a == b;
}
