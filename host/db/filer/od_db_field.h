#pragma once

#include "host/db/filer/od_db_tag_list.h"
#include "host/db/od_db_angle.h"
#include "host/db/od_db_object_id.h"
#include "host/geom/od_ge_2d.h"
#include "host/geom/od_ge_3d.h"

#include <functional>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

/// How a class stands in drawing files: for new classes start here. A class lists its fields once, section by
/// section; reading, writing, defaults and audits all work from that list.

/// The symbol tables that a field may name a record of.
enum class OdDbTableKind : std::uint8_t
{
    kBlock,
    kLayer,
    kLinetype,
    kTextStyle,
    kDimStyle,
    kRegApp,
    kUcs,
    kView,
    kViewport
};
inline constexpr std::size_t kOdDbTableKinds = 9;

enum class OdDbFieldKind : std::uint8_t
{
    kReal,
    kAngle,
    kInt8,
    kInt16,
    kInt32,
    kBool,
    kPoint2,
    kPoint3,
    kString,
    kReference, ///< an object id, in files a handle
    kName       ///< an object id, in files the name of a symbol table record
};

/// When a field is written that equals its default and was not in the file that the object came from.
enum class OdDbWriteRule : std::uint8_t
{
    kAlways,
    kNotDefault
};

/// One field: group code, place in the object, rule.
struct OdDbField
{
    std::int16_t code;
    OdDbFieldKind kind;
    OdDbWriteRule rule;
    OdDbTableKind table;
    void* (*place)(OdDbObject*);
};

template <class T>
constexpr OdDbFieldKind odFieldKindOf()
{
    if constexpr (std::is_same_v<T, double>)
        return OdDbFieldKind::kReal;
    else if constexpr (std::is_same_v<T, OdDbAngle>)
        return OdDbFieldKind::kAngle;
    else if constexpr (std::is_same_v<T, std::int8_t>)
        return OdDbFieldKind::kInt8;
    else if constexpr (std::is_same_v<T, std::int16_t>)
        return OdDbFieldKind::kInt16;
    else if constexpr (std::is_same_v<T, std::int32_t>)
        return OdDbFieldKind::kInt32;
    else if constexpr (std::is_same_v<T, bool>)
        return OdDbFieldKind::kBool;
    else if constexpr (std::is_same_v<T, OdGePoint2d> || std::is_same_v<T, OdGeVector2d>)
        return OdDbFieldKind::kPoint2;
    else if constexpr (std::is_same_v<T, OdGePoint3d> || std::is_same_v<T, OdGeVector3d>)
        return OdDbFieldKind::kPoint3;
    else if constexpr (std::is_same_v<T, OdString>)
        return OdDbFieldKind::kString;
    else {
        static_assert(std::is_same_v<T, OdDbObjectId>, "no field kind for this type");
        return OdDbFieldKind::kReference;
    }
}

template <class C, class T>
C odFieldClass(T C::*);
template <class C, class T>
T odFieldType(T C::*);

/// A field from a pointer to the member that holds it.
template <auto Member>
constexpr OdDbField odField(int code, OdDbWriteRule rule = OdDbWriteRule::kNotDefault)
{
    using Class = decltype(odFieldClass(Member));
    using Type = decltype(odFieldType(Member));
    return {static_cast<std::int16_t>(code), odFieldKindOf<Type>(), rule, OdDbTableKind::kBlock,
            [](OdDbObject* object) -> void* { return &(static_cast<Class*>(object)->*Member); }};
}

/// A field from a function that gives its place, for parts of a member.
template <class Class, auto Place>
constexpr OdDbField odPlaceField(int code, OdDbWriteRule rule = OdDbWriteRule::kNotDefault)
{
    using Type = std::remove_reference_t<decltype(Place(std::declval<Class&>()))>;
    return {static_cast<std::int16_t>(code), odFieldKindOf<Type>(), rule, OdDbTableKind::kBlock,
            [](OdDbObject* object) -> void* { return &Place(*static_cast<Class*>(object)); }};
}

/// A field that names a record of a symbol table.
template <auto Member>
constexpr OdDbField odNameField(int code, OdDbTableKind table, OdDbWriteRule rule = OdDbWriteRule::kNotDefault)
{
    OdDbField field = odField<Member>(code, rule);
    field.kind = OdDbFieldKind::kName;
    field.table = table;
    return field;
}

class OdDbDatabase;
/// The record that a name field means in an object of the drawing: files leave out names that are usual.
OdDbObjectId odDbNameMeant(OdDbField const& field, OdDbObjectId named, OdDbDatabase const& database);

class OdDbReferenceResolver;

/// Fields below one subclass marker. What a list of fields cannot say (vertices, dash elements, entries) is read
/// and written by the tail functions: readTail takes a tag, or says that it is not its own; writeTail writes after
/// the fields; readReference takes tags that hold the handle of another object. Two sections may carry the same
/// marker; a tag below it is looked for in both.
struct OdDbSection
{
    std::string_view marker;
    std::span<OdDbField const> fields;
    bool (*readTail)(OdDbObject& object, OdDbTag const& tag) = nullptr;
    void (*writeTail)(OdDbObject const& object, OdDbTagSink& sink) = nullptr;
    bool (*readReference)(OdDbObject& object, OdDbTag const& tag, OdDbReferenceResolver& resolver) = nullptr;
    /// Goes on below the marker of the section before it, which is not repeated: fields that stand behind a tail.
    bool continues = false;
    /// For sections that stand in for one another; null: always.
    bool (*isWritten)(OdDbObject const& object) = nullptr;
    /// readReference is asked for text too: other objects by name, as older drawings refer to them.
    bool readsNames = false;
    /// Other markers under which files have this section; the first one is written.
    std::span<std::string_view const> otherMarkers = {};
};
