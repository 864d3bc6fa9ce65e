#include "host/db/od_dxf_code.h"

#include <array>
#include <cstddef>

// The ranges are kept as a table for people and spread out over all codes by the compiler, since reading a file
// asks for the kind of every value.
namespace {

struct Range
{
    int first;
    int last;
    OdDxfCode::Type type;
};

// clang-format off
constexpr Range kRanges[] = {
    {  -4,   -4, OdDxfCode::kString},      {  -2,   -1, OdDxfCode::kEntityName},  {   0,    4, OdDxfCode::kString},
    {   5,    5, OdDxfCode::kHandle},      {   6,    9, OdDxfCode::kString},      {  10,   18, OdDxfCode::kPoint},
    {  19,   49, OdDxfCode::kReal},        {  50,   58, OdDxfCode::kAngle},       {  59,   59, OdDxfCode::kReal},
    {  60,   79, OdDxfCode::kInt16},       {  90,   99, OdDxfCode::kInt32},       { 100,  104, OdDxfCode::kString},
    { 105,  105, OdDxfCode::kHandle},      { 110,  112, OdDxfCode::kPoint},       { 113,  149, OdDxfCode::kReal},
    { 160,  169, OdDxfCode::kInt64},       { 170,  179, OdDxfCode::kInt16},       { 210,  219, OdDxfCode::kPoint},
    { 220,  239, OdDxfCode::kReal},        { 270,  289, OdDxfCode::kInt16},       { 290,  299, OdDxfCode::kBool},
    { 300,  309, OdDxfCode::kString},      { 310,  319, OdDxfCode::kBinary},      { 320,  329, OdDxfCode::kHandle},
    { 330,  339, OdDxfCode::kSoftPointer}, { 340,  349, OdDxfCode::kHardPointer}, { 350,  359, OdDxfCode::kSoftOwner},
    { 360,  369, OdDxfCode::kHardOwner},   { 370,  389, OdDxfCode::kInt16},       { 390,  399, OdDxfCode::kHardPointer},
    { 400,  409, OdDxfCode::kInt16},       { 410,  419, OdDxfCode::kString},      { 420,  429, OdDxfCode::kInt32},
    { 430,  439, OdDxfCode::kString},      { 440,  459, OdDxfCode::kInt32},       { 460,  469, OdDxfCode::kReal},
    { 470,  479, OdDxfCode::kString},      { 480,  481, OdDxfCode::kHardPointer}, { 999,  999, OdDxfCode::kComment},
    {1000, 1003, OdDxfCode::kString},      {1004, 1004, OdDxfCode::kBinary},      {1005, 1005, OdDxfCode::kHandle},
    {1006, 1009, OdDxfCode::kString},      {1010, 1013, OdDxfCode::kPoint},       {1014, 1059, OdDxfCode::kReal},
    {1060, 1070, OdDxfCode::kInt16},       {1071, 1071, OdDxfCode::kInt32},
};
// clang-format on

constexpr int kFirstCode = -5;
constexpr int kLastCode = 1071;

constexpr auto kTypes = [] {
    std::array<unsigned char, kLastCode - kFirstCode + 1> types{};
    for (Range const& range : kRanges) {
        for (int code = range.first; code <= range.last; ++code)
            types[static_cast<std::size_t>(code - kFirstCode)] = static_cast<unsigned char>(range.type);
    }
    return types;
}();

} // namespace

OdDxfCode::Type OdDxfCode::_getType(int code)
{
    if (code < kFirstCode || code > kLastCode)
        return kUnknown;
    return static_cast<Type>(kTypes[static_cast<std::size_t>(code - kFirstCode)]);
}
