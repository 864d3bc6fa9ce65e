#pragma once

#include "host/db/entities/od_db_mtext.h"
#include "host/db/entities/od_db_text.h"

/// What attribute definitions and attributes have in common: a text under a tag. The text may have several lines:
/// then the object holds a multiline text, and its own text is what shows where that is not understood.
class OdDbAttributeBase : public OdDbText
{
    OD_DECLARE_CLASS(OdDbAttributeBase)
public:
    OdString const& tag() const { return m_tag; }
    /// Throws OdError(eInvalidName) for an empty tag and for one that holds blanks.
    void setTag(OdString const& tag);

    bool isInvisible() const { return (m_flags & kInvisibleFlag) != 0; }
    void setInvisible(bool on) { setFlag(kInvisibleFlag, on); }
    /// The value is that of the definition; references have no attribute of their own.
    bool isConstant() const { return (m_flags & kConstantFlag) != 0; }
    void setConstant(bool on) { setFlag(kConstantFlag, on); }
    bool isVerifiable() const { return (m_flags & kVerifiableFlag) != 0; }
    void setVerifiable(bool on) { setFlag(kVerifiableFlag, on); }
    bool isPreset() const { return (m_flags & kPresetFlag) != 0; }
    void setPreset(bool on) { setFlag(kPresetFlag, on); }
    bool lockPositionInBlock() const { return m_lockPosition != 0; }
    void setLockPositionInBlock(bool lock);

    /// @name Text of several lines
    /// @{
    bool isMTextAttribute() const { return static_cast<bool>(m_mtext); }
    /// A copy without drawing, with the properties of this one; null for a text of one line.
    OdDbMTextPtr getMTextAttribute() const;
    /// Takes a copy of the text; null makes it one of one line. Its own text stays as it is until it is updated.
    /// Throws OdError(eWrongDatabase) for a text style of another drawing.
    void setMTextAttribute(OdDbMText const* text);
    /// @}

    /// The multiline text goes along.
    OdResult transformBy(OdGeMatrix3d const& transformation) override;
    /// The frame of the multiline text, where there is one.
    void outline(OdDbOutlineSink& sink) const override;
    void listProperties(OdDbPropertySink& sink) const override;

protected:
    OdDbAttributeBase() = default;
    /// The sections of a text and, below `marker`, the fields of a class of its own.
    static std::vector<OdDbSection> attributeSections(std::string_view marker, std::span<OdDbField const> fields);
    /// How files mark an object of this class as one of several lines.
    virtual std::int16_t multilineKind() const = 0;
    /// Brings string, style, height, plane, rotation, alignment and position of its own text in line with the
    /// multiline text; nothing for a text of one line.
    void takeTextOfMText();

    OdString m_tag;
    std::int16_t m_flags = 0;
    std::int16_t m_fieldLength = 0;

private:
    static constexpr std::int16_t kInvisibleFlag = 1;
    static constexpr std::int16_t kConstantFlag = 2;
    static constexpr std::int16_t kVerifiableFlag = 4;
    static constexpr std::int16_t kPresetFlag = 8;
    void setFlag(std::int16_t flag, bool on);
    /// In files the version stands before the other fields and the lock behind them, both under one group code.
    static bool readVersionOrLock(OdDbObject& object, OdDbTag const& tag);
    static void writeVersion(OdDbObject const& object, OdDbTagSink& sink);
    static void writeLock(OdDbObject const& object, OdDbTagSink& sink);

    static bool hasMText(OdDbObject const& object);
    static bool readMText(OdDbObject& object, OdDbTag const& tag);
    static void writeMTextToContents(OdDbObject const& object, OdDbTagSink& sink);
    static void writeMTextBehindStyle(OdDbObject const& object, OdDbTagSink& sink);

    std::int8_t m_version = 0;
    std::int8_t m_lockPosition = 0;
    bool m_hasVersion = false; ///< in the file
    bool m_hasLock = false;    ///< in the file
    std::int16_t m_lineKind = 0;
    std::int16_t m_isReallyLocked = 0;
    OdGePoint3d m_linePoint;            ///< the alignment point once more, ECS
    OdDbCopiedPtr<OdDbTagList> m_mtext; ///< the fields of the multiline text but its style
    OdDbObjectId m_mtextStyle;
};
