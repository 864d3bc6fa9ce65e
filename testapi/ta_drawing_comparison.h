#pragma once

// For those who compare whole drawings, or entities of one drawing with those of another: what differs, all of it,
// in the order of the drawing. Nothing of either drawing is opened for writing or copied; records of equal name
// (layers, styles, blocks) stand for each other.

#include "testapi/ta_comparison.h"

#include <functional>
#include <map>
#include <memory>

namespace ta {

class DrawingBridge;
class FieldComparison;

/// What differs between two drawings. `actual` and `expected` of `property` are those of the first and of the
/// second drawing.
struct DrawingDifference
{
    enum class EKind
    {
        kChanged,
        kOnlyInFirst,
        kOnlyInSecond
    };
    EKind kind = EKind::kChanged;
    OdString place; ///< "model space", "sheet Layout1", "block DOOR", "layer table", "header", "dictionary GROUPS"
    OdString className; ///< of the object, as "OdDbLine"; empty for a variable of the header
    OdString name;      ///< of a record or variable; empty for entities
    OdDbHandle handle1; ///< in the first drawing; null where it is not there, and for variables
    OdDbHandle handle2;
    /// Meaningful for kChanged.
    Difference property;
    /// The property is a field of drawing files, not one of the entity comparison.
    bool isFileField = false;

    /// "radius"; for properties without a value of their own what does not hold, as "Incorrect number of
    /// vertices".
    OdString propertyName() const;
    /// One line; the drawings are called as given.
    OdString text(wchar_t const* firstDrawing = L"the first drawing",
                  wchar_t const* secondDrawing = L"the second drawing") const;
};

/// Compares two drawings, which must not change while this object lives.
class DrawingComparison
{
public:
    using Receiver = std::function<void(DrawingDifference const&)>;

    /// The receiver is called for each difference.
    DrawingComparison(OdDbDatabase const& first, OdDbDatabase const& second, Comparison::Options const& options,
                      Receiver receiver);
    ~DrawingComparison();

    /// Everything that drawing files hold, except what saving alone changes (dates, the next handle, ids of the
    /// drawing) and what shows nothing (reactors, end marks behind parts, the order of entities in a block).
    /// Entities are paired by handle or, where handles differ, by what they look like. True when nothing differs.
    bool wholeDrawings();

    /// @name Parts of it
    /// @{
    /// Layers, linetypes, text styles, dimension styles and blocks that both drawings have, blocks with their
    /// entities in order. Spaces are not among the blocks.
    bool recordsOfEqualName();
    /// Of these, the ones that the given entities of the first drawing use: what they and their parts name, what
    /// such records name in turn, and what the entities of used blocks name. When common properties are skipped,
    /// the layers and linetypes of entities are not among it. Of entities that the host only keeps, the handles in
    /// their tags count, and the names of blocks, linetypes and styles.
    bool recordsUsedBy(std::vector<OdDbEntity const*> const& entities);
    /// The entities of two blocks (or spaces), pair by pair in their order.
    bool entitiesInOrder(OdDbObjectId block1, OdDbObjectId block2);
    /// The same, but paired as in wholeDrawings(): for blocks that hold different numbers of entities, where the
    /// order pairs what does not belong together. Entities that only one block has come first.
    bool entitiesMatched(OdDbObjectId block1, OdDbObjectId block2);
    /// One pair: by the table of their class, or, for a class that the entity comparison does not know, by the
    /// fields that drawing files hold of it.
    bool entities(OdDbEntity const& entity1, OdDbEntity const& entity2);
    /// @}

    long differences() const { return m_differences; }
    /// Pairs of entities that were compared.
    long comparedEntities() const { return m_comparedEntities; }
    /// Of these, pairs compared by file fields, because the entity comparison does not know their class; by class.
    std::map<OdString, long> const& comparedByFields() const { return m_comparedByFields; }

private:
    class Teller;
    struct EntityPair
    {
        OdDbEntity const* first;
        OdDbEntity const* second;
    };
    /// What is left to tell about two blocks when their entities are paired.
    struct BlockPair
    {
        OdString place;
        std::vector<EntityPair> pairs;
        std::vector<OdDbEntity const*> onlyInFirst;
        std::vector<OdDbEntity const*> onlyInSecond;
    };
    /// Records of one table; null where a drawing does not have it.
    struct RecordPair
    {
        OdDbSymbolTableRecord const* first;
        OdDbSymbolTableRecord const* second;
    };
    enum EDepth
    {
        kRowsOnly, ///< fields only of classes that the entity comparison does not know
        kEverything
    };

    static OdString placeOf(OdDbBlockTableRecord const& block);
    static OdString placeOf(OdDbEntity const& entity);
    void tell(DrawingDifference const& difference);
    void tellOnly(OdString const& place, OdDbObject const& object, OdString const& name, bool isInFirst);

    bool comparePair(OdString const& place, OdDbEntity const& entity1, OdDbEntity const& entity2, EDepth depth);
    bool tellPair(OdDbEntity const& entity1, OdDbEntity const& entity2, EDepth depth, Teller& teller);
    bool agree(OdDbEntity const& entity1, OdDbEntity const& entity2, EDepth depth);
    void countPair(OdDbEntity const& entity);

    std::vector<RecordPair> pairRecords(OdDbTableKind kind) const;
    bool compareRecordsWhere(std::function<bool(OdDbSymbolTableRecord const&)> const& isWanted);
    void compareRecords(OdDbTableKind kind, RecordPair const& pair);
    void compareDimStyles(OdDbDimStyleTableRecord const& style1, OdDbDimStyleTableRecord const& style2,
                          Teller& teller) const;
    void tellTable(OdDbTableKind kind);

    void matchBlocks();
    void matchBlock(OdDbBlockTableRecord const& block1, OdDbBlockTableRecord const& block2);
    void matchInStep(OdDbBlockTableRecord const& block1, OdDbBlockTableRecord const& block2, BlockPair& rest);
    void matchRest(BlockPair& rest);
    void notePair(OdDbEntity const& entity1, OdDbEntity const& entity2);
    void tellBlock(BlockPair const& block);

    void tellHeader();
    void tellVariable(std::string_view name, OdString const& value1, OdString const& value2);
    void compareObjects(OdString const& place, OdString const& name, OdDbObject const& object1,
                        OdDbObject const& object2);
    void tellEntries(std::size_t& next);
    void tellLooseObjects();
    void tellKeptSections();
    void tellKeptTags(OdString const& place, OdDbTagList const* tags1, OdDbTagList const* tags2);

    OdDbDatabase const& m_first;
    OdDbDatabase const& m_second;
    Comparison::Options m_options;
    Receiver m_receiver;
    std::unique_ptr<DrawingBridge> m_bridge;
    std::unique_ptr<FieldComparison> m_fields;
    std::vector<BlockPair> m_blocks;
    long m_differences = 0;
    long m_comparedEntities = 0;
    std::map<OdString, long> m_comparedByFields;
    OdRxClass const* m_countedClass = nullptr; ///< of the last pair, as there are many of one class in a row
    bool m_isCountedByFields = false;          ///< pairs of that class
};

} // namespace ta
