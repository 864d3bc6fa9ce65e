#pragma once

// For the comparison of drawings: two objects of one class by what drawing files hold of them.

#include "testapi/ta_drawing_comparison_tags.h"

namespace ta {

/// Compares by the list of fields of the class, its variable parts, and what is kept beside the fields. Left out
/// are what only places the object (its handle, its owner, whether it lies in paper space), reactors, which repeat
/// what other objects refer to, and end marks behind parts, which show nothing.
class FieldComparison
{
public:
    enum EFields
    {
        kAll,
        kWithoutRows, ///< not those of which rows of the entity comparison tell
        kWithoutTails ///< not the variable parts: their owner compares them in its own way
    };

    FieldComparison(OdDbDatabase const& first, OdDbDatabase const& second, Comparison::Options const& options,
                    DrawingBridge const& bridge);

    /// Everything is the same, with the parts of entities; reals exactly. Allocates nothing for what has neither
    /// texts in tails nor kept tags.
    bool areIdentical(OdDbObject const& object1, OdDbObject const& object2);
    /// Tells what differs in two objects of one class, without their parts.
    void compare(OdDbObject const& object1, OdDbObject const& object2, EFields fields, DifferenceSink& sink);
    /// Tells what differs in two entities of one class and in their parts.
    void compareWithParts(OdDbEntity const& entity1, OdDbEntity const& entity2, EFields fields,
                          DifferenceSink& sink);

private:
    /// Two objects that are being compared.
    struct Pair
    {
        OdDbObject const& object1;
        OdDbObject const& object2;
        EFields fields;
        DifferenceSink& sink;
        OdString part = {};
        /// What the objects are parts of; properties that follow those of the whole are told there.
        OdDbEntity const* whole1 = nullptr;
        OdDbEntity const* whole2 = nullptr;
    };

    bool haveIdenticalFields(OdDbObject const& object1, OdDbObject const& object2);
    bool haveIdenticalExtras(OdDbObject const& object1, OdDbObject const& object2) const;
    bool isIdentical(OdDbField const& field, void const* place1, void const* place2) const;
    bool isSameName(OdDbField const& field, OdDbObjectId name1, OdDbObjectId name2) const;
    bool isCompared(OdDbSection const& section) const;

    void comparePair(Pair const& pair);
    void compareField(Pair const& pair, std::string_view marker, OdDbField const& field);
    void compareTail(Pair const& pair, OdDbSection const& section);
    void compareExtras(Pair const& pair);
    void compareKeptSections(Pair const& pair, OdDbObjectExtras const& extras1, OdDbObjectExtras const& extras2);
    void compareExtendedData(Pair const& pair, OdDbTagList const& data1, OdDbTagList const& data2);
    void compareKeptTags(Pair const& pair, OdDbTagList const& tags1, OdDbTagList const& tags2,
                         std::function<OdString(int code)> const& nameOf);
    void tellTags(Pair const& pair, std::function<OdString(int code)> const& nameOf);
    void tell(Pair const& pair, OdString const& name, OdString const& value1, OdString const& value2,
              double offBy = 0) const;
    bool followsWhole(Pair const& pair, OdDbField const& field) const;

    OdDbDatabase const& m_first;
    OdDbDatabase const& m_second;
    Comparison::Options m_options;
    DrawingBridge const& m_bridge;
    TagComparison m_tags;
    TagBuffer m_tags1, m_tags2;
};

} // namespace ta
