#pragma once

#include "host/db/entities/od_db_text.h"

/// What attribute definitions and attributes have in common: a text under a tag.
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

    void listProperties(OdDbPropertySink& sink) const override;

protected:
    OdDbAttributeBase() = default;
    /// The sections of a text and, below `marker`, the fields of a class of its own.
    static std::vector<OdDbSection> attributeSections(std::string_view marker, std::span<OdDbField const> fields);

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

    std::int8_t m_version = 0;
    std::int8_t m_lockPosition = 0;
    bool m_hasVersion = false; ///< in the file
    bool m_hasLock = false;    ///< in the file
};
