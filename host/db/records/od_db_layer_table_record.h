#pragma once

#include "host/db/od_db_color.h"
#include "host/db/records/od_db_symbol_table.h"

/// A layer: what entities "by layer" look like, and whether they are seen, plotted and changed.
class OdDbLayerTableRecord : public OdDbSymbolTableRecord
{
    OD_DB_DECLARE_CLASS(OdDbLayerTableRecord)
public:
    bool isOff() const { return m_signedColor < 0; }
    void setIsOff(bool off);
    bool isFrozen() const { return hasFlag(kFrozen); }
    void setIsFrozen(bool frozen) { setFlag(kFrozen, frozen); }
    bool isLocked() const { return hasFlag(kLocked); }
    void setIsLocked(bool locked) { setFlag(kLocked, locked); }
    bool isPlottable() const { return m_plottable; }
    void setIsPlottable(bool plottable);

    OdCmColor color() const;
    /// Throws OdError(eOutOfRange) for a color whose index is not 1 to 255.
    void setColor(OdCmColor const& color);
    OdDbObjectId linetypeObjectId() const { return m_linetype; }
    /// Throws OdError: eNullObjectId, eWrongDatabase.
    void setLinetypeObjectId(OdDbObjectId linetype);
    /// Hundredths of a millimetre, or -3 for the default.
    int lineWeight() const { return m_lineWeight; }
    /// Throws OdError(eOutOfRange).
    void setLineWeight(int weight);

    OdDbObjectId plotStyleNameId() const { return m_plotStyle; }
    void setPlotStyleName(OdDbObjectId plotStyle);
    OdDbObjectId materialId() const { return m_material; }
    void setMaterialId(OdDbObjectId material);

    /// Free text, kept as extended data; empty when there is none.
    OdString description() const;
    void setDescription(OdString const& text);

    void addedToDatabase() override;

private:
    static constexpr int kFrozen = 1;
    static constexpr int kLocked = 4;

    std::int16_t m_signedColor = 7; ///< color index; negative while the layer is off
    std::int32_t m_trueColor = -1;  ///< 0xRRGGBB, or -1
    OdDbObjectId m_linetype;
    bool m_plottable = true;
    std::int16_t m_lineWeight = -3;
    OdDbObjectId m_plotStyle;
    OdDbObjectId m_material;
};
using OdDbLayerTableRecordPtr = OdSmartPtr<OdDbLayerTableRecord>;
