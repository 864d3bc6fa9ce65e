#pragma once

#include "host/db/od_db_object.h"

#include <optional>

/// One of the colors of a material.
struct OdDbMaterialColor
{
    /// A color value of red, green and blue, as drawing files encode it.
    static constexpr std::int32_t ofRgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
    {
        constexpr std::uint32_t kIsRgb = 0xC2000000U;
        return static_cast<std::int32_t>(kIsRgb | std::uint32_t(red) << 16 | std::uint32_t(green) << 8 | blue);
    }

    bool isOverride = false;                   ///< the material's own color, instead of the object's
    double factor = 1;                         ///< 0 to 1
    std::int32_t value = ofRgb(255, 255, 255); ///< highest byte: kind of color, 0xC2 for red, green and blue

    friend bool operator==(OdDbMaterialColor const&, OdDbMaterialColor const&) = default;
};

/// How surfaces look; named in the dictionary of materials. Maps, and what else the class does not tell, are kept
/// as the file had them, every value in its place. Numbers outside their range, which files may hold, are given
/// as they are; setters refuse them with OdError(eOutOfRange).
class OdDbMaterial : public OdDbObject
{
    OD_DB_DECLARE_CLASS(OdDbMaterial)
public:
    OdString name() const { return text(EProperty::kName); }
    /// The entry of the dictionary keeps its name. Throws OdError(eInvalidName) for an empty name.
    void setName(OdString const& name);
    OdString description() const { return text(EProperty::kDescription); }
    void setDescription(OdString const& description);

    OdDbMaterialColor ambient() const { return color(EProperty::kAmbientMethod); }
    void setAmbient(OdDbMaterialColor const& color) { setColor(EProperty::kAmbientMethod, color); }
    OdDbMaterialColor diffuse() const { return color(EProperty::kDiffuseMethod); }
    void setDiffuse(OdDbMaterialColor const& color) { setColor(EProperty::kDiffuseMethod, color); }
    OdDbMaterialColor specular() const { return color(EProperty::kSpecularMethod); }
    void setSpecular(OdDbMaterialColor const& color) { setColor(EProperty::kSpecularMethod, color); }

    /// Sharpness of highlights, 0 to 1.
    double gloss() const { return real(EProperty::kGloss); }
    void setGloss(double gloss) { setFraction(EProperty::kGloss, gloss); }
    /// 0 (clear) to 1.
    double opacity() const { return real(EProperty::kOpacity); }
    void setOpacity(double opacity) { setFraction(EProperty::kOpacity, opacity); }
    /// 0 to 1.
    double translucence() const { return real(EProperty::kTranslucence); }
    void setTranslucence(double translucence) { setFraction(EProperty::kTranslucence, translucence); }
    /// 0 to 1.
    double reflectivity() const { return real(EProperty::kReflectivity); }
    void setReflectivity(double reflectivity) { setFraction(EProperty::kReflectivity, reflectivity); }
    /// How strongly light is refracted, positive; 1 for not at all.
    double refractionIndex() const { return real(EProperty::kRefractionIndex); }
    void setRefractionIndex(double index);

    /// Bits of the maps and effects that are in use; 63, the first six, by default.
    std::int32_t channelFlags() const { return static_cast<std::int32_t>(integer(EProperty::kChannelFlags)); }
    void setChannelFlags(std::int32_t flags);

    bool standsAmongFileObjects() const override { return true; }

private:
    friend struct OdDbMaterialRow;
    /// The three values of a color follow each other.
    enum class EProperty : std::uint8_t
    {
        kName,
        kDescription,
        kAmbientMethod,
        kAmbientFactor,
        kAmbientValue,
        kDiffuseMethod,
        kDiffuseFactor,
        kDiffuseValue,
        kSpecularMethod,
        kSpecularFactor,
        kSpecularValue,
        kGloss,
        kOpacity,
        kRefractionIndex,
        kTranslucence,
        kReflectivity,
        kChannelFlags,
        kNone ///< kept only
    };
    /// A property's tag, or tags that are kept, with their row in the table of what files have.
    struct Part
    {
        std::size_t row;
        EProperty property;
        OdDbTagList tags;
    };

    static bool readTag(OdDbObject& object, OdDbTag const& tag);
    static void writeTags(OdDbObject const& object, OdDbTagSink& sink);

    void take(OdDbTag const& tag);
    Part const* find(EProperty property) const;
    std::optional<OdDbTag> tagOf(EProperty property) const;
    OdString text(EProperty property) const;
    double real(EProperty property) const;
    std::int64_t integer(EProperty property) const;
    OdDbMaterialColor color(EProperty method) const;
    void put(EProperty property, OdDbTag tag);
    void setFraction(EProperty property, double value);
    void setColor(EProperty method, OdDbMaterialColor const& color);

    std::vector<Part> m_parts; ///< in the order of the file
    std::size_t m_row = 0;     ///< up to which the file has been read
};
using OdDbMaterialPtr = OdSmartPtr<OdDbMaterial>;

/// The dictionary of materials. Without one, it is added if `create` is set, else the null id comes back.
OdDbObjectId odDbMaterialDictionary(OdDbDatabase& database, bool create = false);

/// Gives a new material to the drawing, under its name. Throws OdError: eInvalidName for a material without name,
/// eDuplicateKey for a name that another material has, eAlreadyInDb.
OdDbObjectId odDbAddMaterial(OdDbDatabase& database, OdDbMaterial* material);
