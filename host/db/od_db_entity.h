#pragma once

#include "host/db/od_db_color.h"
#include "host/db/od_db_object.h"
#include "host/db/od_db_outline.h"
#include "host/db/od_db_part_list.h"
#include "host/geom/od_ge_extents3d.h"
#include "host/geom/od_ge_matrix3d.h"

class OdDbPropertySink;

/// Base of everything that is drawn. Coordinates are world coordinates unless an accessor says ECS.
class OdDbEntity : public OdDbObject
{
    OD_DECLARE_CLASS(OdDbEntity)
public:
    OdCmColor const& color() const { return m_color; }
    void setColor(OdCmColor const& color);
    OdDbObjectId layerId() const { return m_layer; }
    void setLayer(OdDbObjectId layer);
    OdDbObjectId linetypeId() const;
    void setLinetype(OdDbObjectId linetype);
    double linetypeScale() const { return m_linetypeScale; }
    /// Throws OdError(eOutOfRange) for a scale that is not positive.
    void setLinetypeScale(double scale);
    /// Hundredths of a millimetre; -1 by layer, -2 by block, -3 the default.
    int lineWeight() const { return m_lineWeight; }
    void setLineWeight(int weight);
    bool isVisible() const { return m_invisible == 0; }
    void setVisible(bool visible);

    /// Takes color, layer, linetype, linetype scale, lineweight and visibility of another entity of the same
    /// drawing.
    void setPropertiesFrom(OdDbEntity const& other);
    /// Takes color, layer, linetype, linetype scale and lineweight that are current in the drawing; texts take the
    /// current text style too.
    virtual void setDatabaseDefaults(OdDbDatabase& database);

    /// Moves, turns, scales the entity; eOk, or an error that leaves it as it was: eNotApplicable for entities
    /// that the host only keeps, eDegenerateGeometry for a transformation that the class cannot take.
    virtual OdResult transformBy(OdGeMatrix3d const& transformation);
    /// Gives the true geometry to the receiver; nothing for entities that the host only keeps.
    virtual void outline(OdDbOutlineSink& sink) const;
    /// Box around the outline; empty for an entity without.
    OdGeExtents3d extents() const;

    /// The simpler entities that show the same, with the properties of this one, in no drawing; the entity itself
    /// stays. eNotApplicable for a class that is as simple as can be, or a block that may not be exploded.
    virtual OdResult explode(std::vector<OdDbEntityPtr>& pieces) const;

    /// @name Stretching: points that go along when a crossing window catches them, in world coordinates
    /// An entity without any goes along as a whole where its base point is caught.
    /// @{
    virtual void getStretchPoints(std::vector<OdGePoint3d>& points) const;
    /// Moves some of these points. An error leaves all as it was.
    virtual OdResult moveStretchPointsAt(std::span<int const> indices, OdGeVector3d const& offset);
    /// @}

    /// Tells what makes up the entity, for users to read: what it has beyond the properties of every entity.
    virtual void listProperties(OdDbPropertySink& sink) const;

    /// @name Parts: entities that belong to this one and follow it in files, see OdDbPartList
    /// @{
    /// Parts that are in the drawing, in order, erased ones included.
    std::span<OdDbStub* const> subentities() const;
    /// The end mark that files put behind the parts; null when there is none.
    OdDbObjectId sequenceEnd() const;
    OdDbPartIterator partIterator(bool skipErased = true) const
    {
        return OdDbPartIterator(partList(), skipErased);
    }
    /// Parts that are not erased.
    unsigned numParts() const;
    /// Null for a class without parts.
    virtual OdDbPartList const* partList() const { return nullptr; }
    /// The class of all parts; null where these are of several, or there are none.
    virtual OdRxClass* partClass() const { return nullptr; }
    /// False for an entity that cannot be a part of this one.
    virtual bool takesPart(OdDbEntity const& part) const;
    /// What cannot be right about the number of the parts that the file gave, as audits tell it; empty when
    /// nothing.
    virtual OdString partsProblem() const { return {}; }
    /// Becomes the last part, with the layer of the entity where it has none; returns its id, null while the
    /// entity is in no drawing. Throws OdError: eAlreadyInDb, eNotOpenForWrite, OdError_NotThatKindOfClass for
    /// what takesPart() refuses.
    OdDbObjectId appendPart(OdDbEntity* part);
    /// For filers: parts and end mark that are in the drawing already. Throws OdError_NotThatKindOfClass as
    /// appendPart.
    void adoptPart(OdDbEntity& part);
    void adoptSequenceEnd(OdDbEntity& end);
    /// @}

    void addedToDatabase() override;
    void copyPartsOf(OdDbObject const& source) override;

    static OdDbSection entitySection();

protected:
    OdDbEntity() = default;
    /// As appendPart, in front of the part at an index of the list, in which erased parts count.
    OdDbObjectId insertPart(OdDbEntity* part, std::size_t index);
    /// Erases all parts.
    void clearParts();
    /// All parts that are not erased, open for writing.
    std::vector<OdDbEntityPtr> openParts() const;
    /// Files hold an end mark even where there are no parts.
    virtual bool alwaysHasSequenceEnd() const { return false; }
    /// Parts show the color, layer and so on of the whole: they follow when those are set.
    virtual bool partsFollowProperties() const { return false; }
    void visitOwned(std::function<void(OdDbStub&)> const& visit) const override;

private:
    OdDbPartList& editPartList(OdDbEntity const& part);
    OdDbObjectId addPartToDrawing(OdDbPartList& parts, OdDbEntity& part, std::size_t index);
    void addSequenceEnd(OdDbPartList& parts);
    template <class Set>
    void setOnParts(Set const& set);

    OdDbObjectId m_layer;
    OdDbObjectId m_linetype;
    double m_linetypeScale = 1.0;
    OdCmColor m_color;
    std::int16_t m_lineWeight = -1;
    std::int16_t m_invisible = 0;
};
